// SPDX-License-Identifier: MIT
#pragma once

#include <QtGlobal>

#include <cstddef>
#include <cstdlib>
#include <memory>

namespace teskel
{

/// How unpacking a member ended.
enum class MemberStatus {
    Ok,            ///< unpacked, and the checksum holds
    BadHeader,     ///< no member header, or one that is cut short
    TooLarge,      ///< it claims to expand to more than 32,767 bytes
    OutOfMemory,   ///< no memory for the result
    UnknownMethod, ///< packed by another method than 1 to 4
    BadCodes,      ///< its code tables are damaged
    BadChecksum,   ///< the bytes that came out are not those that went in
};

/// One sentence for people, without a full stop.
const char* memberStatusText(MemberStatus status);

struct FreeDeleter {
    void operator()(void* block) const { std::free(block); }
};

/// The bytes of an unpacked member, from malloc.
struct MemberBlock {
    std::unique_ptr<char, FreeDeleter> data; ///< null unless unpacking succeeded
    quint32 size = 0;                        ///< bytes of the member
};

/// Unpacks the member in the first `sourceSize` bytes at `source`.
///
/// @param spare  zero bytes to append to the block, not counted in its size
MemberStatus decodeMember(const void* source, std::size_t sourceSize, MemberBlock& result,
                          std::size_t spare = 0);

} // namespace teskel
