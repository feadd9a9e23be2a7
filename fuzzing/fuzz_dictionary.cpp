// SPDX-License-Identifier: MIT
// Any bytes as a dictionary file.
#include "fuzzing/fuzzsupport.h"
#include "fuzzing/fuzztarget.h"

using namespace teskel::fuzz;

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    static const MemoryFile file;
    file.setContent(reinterpret_cast<const char*>(data), size);
    exerciseDictionary(file.path());
    return 0;
}
