// SPDX-License-Identifier: MIT
#include "dictionary/unpacking/cdecoder.h"

#include "dictionary/unpacking/cbuffer.h"
#include "dictionary/unpacking/cfileheader.h"
#include "dictionary/unpacking/crc32.h"
#include "dictionary/unpacking/fastestdecoder.h"
#include "dictionary/unpacking/outputwindow.h"

#include <algorithm>

using teskel::MemberStatus;

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
    bool isKnown = true;
    switch (header->method()) {
    case teskel::arj::MostCompressed:
    case teskel::arj::Compressed:
    case teskel::arj::Faster:
        _bits.Attach(input, header);
        _bits.InitGetBits();
        _status = teskel::decodeStaticHuffman(_bits, _tables, window);
        break;
    case teskel::arj::Fastest:
        _bits.Attach(input, header);
        _bits.InitGetBits();
        teskel::decodeFastest(_bits, window);
        break;
    default:
        isKnown = false;
        break;
    }
    output->Seek(static_cast<long>(window.position()), CBuffer::FromStart);
    if (_status == MemberStatus::Ok &&
        teskel::crc32(output->data(), window.position()) != header->uncompressedCrc())
        _status = isKnown ? MemberStatus::BadChecksum : MemberStatus::UnknownMethod;
    return _status == MemberStatus::Ok;
}
