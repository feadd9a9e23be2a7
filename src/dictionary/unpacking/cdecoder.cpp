// SPDX-License-Identifier: MIT
#include "dictionary/unpacking/cdecoder.h"

#include "dictionary/unpacking/cbuffer.h"
#include "dictionary/unpacking/cfileheader.h"
#include "dictionary/unpacking/crc32.h"
#include "dictionary/unpacking/fastestdecoder.h"
#include "dictionary/unpacking/huffmandecoder.h"
#include "dictionary/unpacking/outputwindow.h"

#include <algorithm>

using teskel::MemberStatus;

namespace
{
// One row a method: its number, and what decodes its bits until the output is full.
struct Method {
    quint8 number;
    MemberStatus (*decode)(CBitBuffer& bits, teskel::OutputWindow& output);
};

constexpr Method methods[] = {
    {teskel::arj::MostCompressed, teskel::decodeHuffman},
    {teskel::arj::Compressed, teskel::decodeHuffman},
    {teskel::arj::Faster, teskel::decodeHuffman},
    {teskel::arj::Fastest, teskel::decodeFastest},
};
} // namespace

bool CDecoder::Decompress(CFileHeader* header, CBuffer* input, CBuffer* output)
{
    output->Seek(0, CBuffer::FromStart);
    if (header->uncompressedSize() > teskel::arj::maxUncompressedSize) {
        _status = MemberStatus::TooLarge;
        return false;
    }
    const long room = output->mode() == CBuffer::Write_Mode ? output->Size() : 0;
    const long capacity = std::min(room, long{header->uncompressedSize()});
    teskel::OutputWindow window(output->data(), static_cast<unsigned>(capacity));
    _status = MemberStatus::Ok;
    const auto* method = std::find_if(std::begin(methods), std::end(methods), [&](const Method& m) {
        return m.number == header->method();
    });
    const bool isKnown = method != std::end(methods);
    if (isKnown) {
        _bits.Attach(input, header);
        _bits.InitGetBits();
        _status = method->decode(_bits, window);
    }
    output->Seek(static_cast<long>(window.position()), CBuffer::FromStart);
    if (_status == MemberStatus::Ok &&
        teskel::crc32(output->data(), window.position()) != header->uncompressedCrc())
        _status = isKnown ? MemberStatus::BadChecksum : MemberStatus::UnknownMethod;
    return _status == MemberStatus::Ok;
}
