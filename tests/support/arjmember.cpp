// SPDX-License-Identifier: MIT
#include "tests/support/arjmember.h"

#include "tests/support/bitwriter.h"

#include <QtEndian>

#include <zlib.h>

namespace teskel::test
{

namespace
{
template<typename Number>
QByteArray littleEndian(Number value)
{
    QByteArray bytes(sizeof(Number), '\0');
    qToLittleEndian(value, bytes.data());
    return bytes;
}
} // namespace

QByteArray ArjMember::header() const
{
    QByteArray basic;
    basic.append(static_cast<char>(firstHeaderSize));
    basic.append(char(11)); // archiver version
    basic.append(char(1));  // version needed to extract
    basic.append(char(2));  // host: Unix
    basic.append(char(0));  // flags
    basic.append(static_cast<char>(method));
    basic.append(char(0));             // file type: binary
    basic.append(char(0));             // reserved
    basic += littleEndian<quint32>(0); // date and time
    basic += littleEndian(compressedSize);
    basic += littleEndian(uncompressedSize);
    basic += littleEndian(crc);
    basic += littleEndian<quint16>(0); // position of the file name in the path
    basic += littleEndian<quint16>(0); // access mode
    basic += littleEndian<quint16>(0); // host data
    basic.append(qMax(0, firstHeaderSize - static_cast<int>(basic.size())), '\0');
    const QByteArray end(hasTerminators ? 1 : 0, '\0');
    basic += fileName + end + comment + end;

    const int size = basicHeaderSize >= 0 ? basicHeaderSize : static_cast<int>(basic.size());
    return littleEndian(headerId) + littleEndian(static_cast<quint16>(size)) + basic +
           littleEndian<quint32>(0) + extendedHeaders + littleEndian<quint16>(0);
}

quint32 checksum(const QByteArray& bytes)
{
    return static_cast<quint32>(::crc32(0, reinterpret_cast<const Bytef*>(bytes.constData()),
                                        static_cast<uInt>(bytes.size())));
}

QByteArray makeMember(quint8 method, const QByteArray& packed, const QByteArray& original)
{
    ArjMember member;
    member.method = method;
    member.compressedSize = static_cast<quint32>(packed.size());
    member.uncompressedSize = static_cast<quint32>(original.size());
    member.crc = checksum(original);
    return member.header() + packed;
}

QByteArray packLiterals(const QByteArray& original)
{
    BitWriter bits;
    for (const char byte : original)
        bits.put(0, 1).put(static_cast<quint8>(byte), 8);
    return bits.bytes();
}

QByteArray literalMember(const QByteArray& original)
{
    return makeMember(4, packLiterals(original), original);
}

QByteArray extendedHeader(const QByteArray& content)
{
    return littleEndian(static_cast<quint16>(content.size())) + content + littleEndian<quint32>(0);
}

} // namespace teskel::test
