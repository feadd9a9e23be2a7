// SPDX-License-Identifier: MIT
#pragma once

#include "dictionary/unpacking/arjformat.h"

class CBuffer;

/// The header of an ARJ member, parsed.
class CFileHeader
{
public:
    /// Parses a header from the position of `source` and leaves `source` at the first compressed
    /// byte. The headers' own checksums are not looked at.
    explicit CFileHeader(CBuffer* source);

    /// False when the id is wrong, the header is cut short, or it is the mark that ends an archive.
    [[nodiscard]] bool isValid() const { return _isValid; }

    [[nodiscard]] quint16 headerId() const { return _headerId; }
    [[nodiscard]] quint16 basicHeaderSize() const { return _basicHeaderSize; }
    [[nodiscard]] quint8 firstHeaderSize() const { return _firstHeaderSize; }
    [[nodiscard]] quint8 archiverVersion() const { return _archiverVersion; }
    [[nodiscard]] quint8 minimumVersion() const { return _minimumVersion; }
    [[nodiscard]] quint8 hostOs() const { return _hostOs; }
    [[nodiscard]] quint8 flags() const { return _flags; }
    [[nodiscard]] quint8 method() const { return _method; }
    [[nodiscard]] quint8 fileType() const { return _fileType; }
    [[nodiscard]] quint8 reserved() const { return _reserved; }
    [[nodiscard]] quint32 dateTime() const { return _dateTime; }
    /// Bytes still to be fed to the bit reader: counted down while decoding.
    [[nodiscard]] quint32 compressedSize() const { return _compressedSize; }
    [[nodiscard]] quint32 uncompressedSize() const { return _uncompressedSize; }
    /// CRC-32 of the uncompressed bytes.
    [[nodiscard]] quint32 uncompressedCrc() const { return _uncompressedCrc; }
    [[nodiscard]] quint16 fileSpecPosition() const { return _fileSpecPosition; }
    [[nodiscard]] quint16 fileAccessMode() const { return _fileAccessMode; }
    [[nodiscard]] quint16 hostData() const { return _hostData; }
    /// Cut to 511 and 2047 bytes.
    [[nodiscard]] const char* fileName() const { return _fileName; }
    [[nodiscard]] const char* comment() const { return _comment; }

    /// For the bit reader's count.
    void setCompressedSize(quint32 bytes) { _compressedSize = bytes; }

private:
    void parseBasicHeader(CBuffer& basic);

    bool _isValid = false;
    quint16 _headerId = 0;
    quint16 _basicHeaderSize = 0;
    quint8 _firstHeaderSize = 0;
    quint8 _archiverVersion = 0;
    quint8 _minimumVersion = 0;
    quint8 _hostOs = 0;
    quint8 _flags = 0;
    quint8 _method = 0;
    quint8 _fileType = 0;
    quint8 _reserved = 0;
    quint32 _dateTime = 0;
    quint32 _compressedSize = 0;
    quint32 _uncompressedSize = 0;
    quint32 _uncompressedCrc = 0;
    quint16 _fileSpecPosition = 0;
    quint16 _fileAccessMode = 0;
    quint16 _hostData = 0;
    char _fileName[teskel::arj::fileNameCapacity];
    char _comment[teskel::arj::commentCapacity];
};
