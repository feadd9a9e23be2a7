// SPDX-License-Identifier: MIT
#include "dictionary/unpacking/memberstatus.h"

namespace teskel
{

const char* memberStatusText(MemberStatus status)
{
    switch (status) {
    case MemberStatus::Ok:
        return "it is sound";
    case MemberStatus::BadHeader:
        return "it does not begin with a whole header";
    case MemberStatus::TooLarge:
        return "it claims to expand to more than 32,767 bytes";
    case MemberStatus::OutOfMemory:
        return "there is no memory left for it";
    case MemberStatus::UnknownMethod:
        return "it is packed by a method other than 1 to 4";
    case MemberStatus::BadCodes:
        return "its code tables are damaged";
    case MemberStatus::BadChecksum:
        break;
    }
    return "its bytes do not match their checksum";
}

} // namespace teskel
