// SPDX-License-Identifier: MIT
// Any bytes as a dictionary file.
#include "fuzz/fuzzsupport.h"
#include "fuzz/fuzztarget.h"

using namespace teskel::fuzz;

int LLVMFuzzerInitialize(int* /*argc*/, char*** /*argv*/)
{
    silenceMessages();
    return 0;
}

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    static const MemoryFile file;
    file.setContent(reinterpret_cast<const char*>(data), size);
    exerciseDictionary(file.path());
    return 0;
}
