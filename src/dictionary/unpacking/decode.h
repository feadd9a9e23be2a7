// SPDX-License-Identifier: MIT
#pragma once

#include "dictionary/unpacking/cbitbuffer.h"
#include "dictionary/unpacking/cbuffer.h"
#include "dictionary/unpacking/cdecoder.h"
#include "dictionary/unpacking/cfileheader.h"
#include "dictionary/unpacking/memberstatus.h"

#include <cstddef>
#include <cstdlib>
#include <memory>

/// Unpacks the ARJ member in `source` into a new block of exactly the size its header names.
/// @return the block, which the caller frees with free(), or null on any failure
void* DecompressBuffer(void* source, long sourceSize);

/// The same into the caller's block; never writes past its end.
bool DecompressBuffer(void* target, long targetSize, void* source, long sourceSize);

namespace teskel
{

struct FreeDeleter {
    void operator()(void* block) const { std::free(block); }
};

/// The bytes of an unpacked member, from malloc.
struct MemberBlock {
    std::unique_ptr<char, FreeDeleter> data; ///< null unless unpacking succeeded
    quint32 size = 0;                        ///< bytes of the member
};

/// Unpacks the member in the first `sourceSize` bytes at `source`, and tells why it cannot.
///
/// @param spare  zero bytes to append to the block, not counted in its size
MemberStatus decodeMember(const void* source, std::size_t sourceSize, MemberBlock& result,
                          std::size_t spare = 0);

} // namespace teskel
