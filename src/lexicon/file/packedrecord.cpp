// SPDX-License-Identifier: MIT
#include "lexicon/file/packedrecord.h"

#include "dictionary/unpacking/cbuffer.h"
#include "dictionary/unpacking/cfileheader.h"
#include "dictionary/unpacking/memberdecoder.h"

namespace teskel
{

namespace
{

/// Why a record does not unpack, as the end of a sentence about it.
const char* reason(MemberStatus status)
{
    switch (status) {
    case MemberStatus::BadHeader:
        return "it does not begin with a whole header";
    case MemberStatus::TooLarge:
        return "it claims to expand to more than 32,767 bytes";
    case MemberStatus::UnknownMethod:
        return "it is packed by a method other than 1 to 4";
    case MemberStatus::BadCodes:
        return "its code tables are damaged";
    case MemberStatus::OutOfMemory:
        return "there is no memory left for it";
    default:
        return "its bytes do not match their checksum";
    }
}

} // namespace

PackedRecord::PackedRecord(const std::string& bytes)
    : _bytes(bytes)
{
    CBuffer buffer;
    buffer.OpenMemory(_bytes.data(), static_cast<long>(_bytes.size()), CBuffer::Read_Mode);
    const CFileHeader header(&buffer);
    if (header.isValid()) {
        _method = header.method();
        _unpackedSize = header.uncompressedSize();
    }
}

bool PackedRecord::unpack(std::string& out, std::string& error) const
{
    MemberBlock block;
    const MemberStatus status = decodeMember(_bytes.data(), _bytes.size(), block);
    if (status != MemberStatus::Ok) {
        error = reason(status);
        return false;
    }
    out.assign(block.data.get(), block.size);
    return true;
}

} // namespace teskel
