// SPDX-License-Identifier: MIT
#include "dictionary/unpacking/decode.h"

#include <algorithm>
#include <cstring>
#include <limits>

void* DecompressBuffer(void* source, long sourceSize)
{
    if (!source || sourceSize < 0)
        return nullptr;
    teskel::MemberBlock block;
    teskel::decodeMember(source, static_cast<std::size_t>(sourceSize), block);
    return block.data.release();
}

bool DecompressBuffer(void* target, long targetSize, void* source, long sourceSize)
{
    CBuffer input;
    input.OpenMemory(source, sourceSize, CBuffer::Read_Mode);
    CFileHeader header(&input);
    if (!header.isValid())
        return false;
    CBuffer output;
    output.OpenMemory(target, targetSize, CBuffer::Write_Mode);
    CDecoder decoder;
    return decoder.Decompress(&header, &input, &output);
}

namespace teskel
{

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
