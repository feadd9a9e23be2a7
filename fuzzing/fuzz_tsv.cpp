// SPDX-License-Identifier: MIT
// Any bytes as a tab-separated source, packed ones too.
#include "fuzzing/fuzzsupport.h"
#include "fuzzing/fuzztarget.h"
#include "fuzzing/sourceexercise.h"

using namespace teskel::fuzz;

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    static const MemoryFile file;
    file.setContent(reinterpret_cast<const char*>(data), size);
    exerciseSource("tsv", file.path().toStdString());
    return 0;
}
