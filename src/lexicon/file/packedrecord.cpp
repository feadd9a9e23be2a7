// SPDX-License-Identifier: MIT
#include "lexicon/file/packedrecord.h"

#include "dictionary/unpacking/cbuffer.h"
#include "dictionary/unpacking/cfileheader.h"
#include "dictionary/unpacking/decode.h"

namespace teskel
{

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
        error = memberStatusText(status);
        return false;
    }
    out.assign(block.data.get(), block.size);
    return true;
}

} // namespace teskel
