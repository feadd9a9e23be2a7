// SPDX-License-Identifier: MIT
#include "dictionary/unpacking/memberdecoder.h"

#include "dictionary/unpacking/decode.h"

#include <algorithm>
#include <cstring>
#include <limits>

namespace teskel
{

const char* memberStatusText(MemberStatus status)
{
    switch (status) {
    case MemberStatus::Ok:
        return "The record is sound";
    case MemberStatus::BadHeader:
        return "The record does not begin with a whole header";
    case MemberStatus::TooLarge:
        return "The record claims to expand to more than 32767 bytes";
    case MemberStatus::OutOfMemory:
        return "There is no memory left for the record";
    case MemberStatus::UnknownMethod:
        return "The record is packed by a method other than 1 to 4";
    case MemberStatus::BadCodes:
        return "The record's code tables are damaged";
    case MemberStatus::BadChecksum:
        break;
    }
    return "The record's checksum does not hold";
}

MemberStatus decodeMember(const void* source, std::size_t sourceSize, MemberBlock& result,
                          std::size_t spare)
{
    result = {};
    CBuffer input;
    input.OpenMemory(
        source,
        static_cast<long>(std::min<std::size_t>(sourceSize, std::numeric_limits<qint32>::max())),
        CBuffer::Read_Mode);
    CFileHeader header(&input);
    if (!header.isValid())
        return MemberStatus::BadHeader;
    const quint32 size = header.uncompressedSize();
    if (size > arj::maxUncompressedSize)
        return MemberStatus::TooLarge;

    // An empty member has a block, too: null means failure.
    const std::size_t blockSize = std::max<std::size_t>(size + spare, 1);
    MemberBlock block;
    block.data.reset(static_cast<char*>(std::malloc(blockSize)));
    if (!block.data)
        return MemberStatus::OutOfMemory;
    block.size = size;
    CBuffer output;
    output.OpenMemory(block.data.get(), static_cast<long>(size), CBuffer::Write_Mode);
    CDecoder decoder;
    if (!decoder.Decompress(&header, &input, &output))
        return decoder.status();
    // A method that writes nothing passes with a checksum of 0: what it did not write reads as 0.
    const auto written = static_cast<std::size_t>(output.Tell());
    std::memset(block.data.get() + written, 0, blockSize - written);
    result = std::move(block);
    return MemberStatus::Ok;
}

} // namespace teskel
