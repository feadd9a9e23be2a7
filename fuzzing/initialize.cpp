// SPDX-License-Identifier: MIT
// What each fuzz target does before its first input.
#include "fuzzing/fuzzsupport.h"
#include "fuzzing/fuzztarget.h"

int LLVMFuzzerInitialize(int* /*argc*/, char*** /*argv*/)
{
    teskel::fuzz::silenceMessages();
    return 0;
}
