// SPDX-License-Identifier: MIT
#include "dictionary/unpacking/cfileheader.h"

#include "dictionary/unpacking/cbuffer.h"

namespace
{
constexpr long checksumSize = 4;

// Reads up to a NUL or the end of the data; what does not fit is passed over.
void readText(CBuffer& source, char* text, unsigned capacity)
{
    unsigned length = 0;
    for (int byte = source.GetC(); byte > 0; byte = source.GetC()) {
        if (length + 1 < capacity)
            text[length++] = static_cast<char>(byte);
    }
    text[length] = '\0';
}

// False when the source ends before the empty header that ends the list.
bool skipExtendedHeaders(CBuffer& source)
{
    for (;;) {
        if (source.Size() - source.Tell() < 2)
            return false;
        const quint16 size = source.getword();
        if (size == 0)
            return true;
        source.Seek(long{size} + checksumSize, CBuffer::FromPosition);
    }
}
} // namespace

CFileHeader::CFileHeader(CBuffer* source)
{
    _fileName[0] = '\0';
    _comment[0] = '\0';
    _headerId = source->getword();
    if (_headerId != teskel::arj::headerId)
        return;
    _basicHeaderSize = source->getword();
    if (_basicHeaderSize == 0) // ends an archive; nothing can be unpacked from it
        return;
    CBuffer basic;
    if (!basic.Open(source, _basicHeaderSize))
        return;
    parseBasicHeader(basic);
    source->Seek(checksumSize, CBuffer::FromPosition);
    _isValid = skipExtendedHeaders(*source);
}

void CFileHeader::parseBasicHeader(CBuffer& basic)
{
    _firstHeaderSize = basic.getbyte();
    _archiverVersion = basic.getbyte();
    _minimumVersion = basic.getbyte();
    _hostOs = basic.getbyte();
    _flags = basic.getbyte();
    _method = basic.getbyte();
    _fileType = basic.getbyte();
    _reserved = basic.getbyte();
    _dateTime = basic.getlongword();
    _compressedSize = basic.getlongword();
    _uncompressedSize = basic.getlongword();
    _uncompressedCrc = basic.getlongword();
    _fileSpecPosition = basic.getword();
    _fileAccessMode = basic.getword();
    _hostData = basic.getword();
    basic.Seek(_firstHeaderSize, CBuffer::FromStart);
    readText(basic, _fileName, sizeof _fileName);
    readText(basic, _comment, sizeof _comment);
}
