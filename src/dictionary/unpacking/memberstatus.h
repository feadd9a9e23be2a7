// SPDX-License-Identifier: MIT
#pragma once

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

/// The status for people: the end of a sentence about the record, "it ...", without a full stop.
const char* memberStatusText(MemberStatus status);

} // namespace teskel
