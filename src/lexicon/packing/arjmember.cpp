// SPDX-License-Identifier: MIT
#include "lexicon/packing/arjmember.h"

#include "dictionary/unpacking/arjformat.h"
#include "dictionary/unpacking/crc32.h"

#include <QByteArray>
#include <QDataStream>
#include <QIODevice>

namespace teskel
{

namespace
{

constexpr char memberName[] = "r";
constexpr quint8 archiverVersion = 11;
constexpr quint8 minimumVersion = 1;
constexpr quint8 hostUnix = 2;
constexpr quint8 binaryFile = 0;
constexpr quint32 fixedDate = 0x00210000; // 1 January 1980, 0:00
constexpr quint16 regularFileMode = 0100644;

quint32 checksum(std::string_view data)
{
    return crc32(data.data(), data.size());
}

void appendRaw(QDataStream& out, std::string_view bytes)
{
    out.writeRawData(bytes.data(), static_cast<int>(bytes.size()));
}

QByteArray basicHeader(std::string_view data, size_t packedSize, int method)
{
    QByteArray header;
    QDataStream out(&header, QIODevice::WriteOnly);
    out.setByteOrder(QDataStream::LittleEndian);
    out << quint8{arj::firstHeaderSize};
    out << archiverVersion << minimumVersion << hostUnix;
    out << quint8{0}; // flags
    out << static_cast<quint8>(method) << binaryFile;
    out << quint8{0}; // reserved
    out << fixedDate;
    out << static_cast<quint32>(packedSize) << static_cast<quint32>(data.size());
    out << checksum(data);
    out << quint16{0}; // the name has no directory in front
    out << regularFileMode;
    out << quint16{0}; // host data
    appendRaw(out, {memberName, sizeof memberName});
    out << quint8{0}; // comment
    return header;
}

} // namespace

std::string ArjMember::pack(std::string_view data, ArjEncoder& encoder)
{
    const std::string packed = encoder.pack(data);
    const QByteArray basic = basicHeader(data, packed.size(), encoder.method());
    const std::string_view header(basic.constData(), static_cast<size_t>(basic.size()));
    QByteArray member;
    QDataStream out(&member, QIODevice::WriteOnly);
    out.setByteOrder(QDataStream::LittleEndian);
    out << arj::headerId << static_cast<quint16>(header.size());
    appendRaw(out, header);
    out << checksum(header);
    out << quint16{0}; // no extended header
    appendRaw(out, packed);
    return member.toStdString();
}

} // namespace teskel
