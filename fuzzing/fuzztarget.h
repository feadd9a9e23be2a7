// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>

/// The two functions that libFuzzer calls; each fuzz target defines them.
extern "C" int LLVMFuzzerInitialize(int* argc, char*** argv);
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);
