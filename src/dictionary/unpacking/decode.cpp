// SPDX-License-Identifier: MIT
#include "dictionary/unpacking/decode.h"

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
