// SPDX-License-Identifier: MIT
#include "tests/support/palmwriter.h"

#include <QFile>
#include <QtEndian>

namespace teskel::test
{

namespace
{
constexpr int headerSize = 78;
constexpr int entrySize = 8;

void append16(QByteArray& bytes, quint16 value)
{
    char text[2];
    qToBigEndian(value, text);
    bytes.append(text, 2);
}

void append32(QByteArray& bytes, quint32 value)
{
    char text[4];
    qToBigEndian(value, text);
    bytes.append(text, 4);
}
} // namespace

PalmWriter& PalmWriter::setName(const QByteArray& name)
{
    _name = name;
    return *this;
}

PalmWriter& PalmWriter::setType(const QByteArray& type)
{
    _type = type;
    return *this;
}

PalmWriter& PalmWriter::setCreator(const QByteArray& creator)
{
    _creator = creator;
    return *this;
}

PalmWriter& PalmWriter::setVersion(quint16 version)
{
    _version = version;
    return *this;
}

PalmWriter& PalmWriter::setDates(quint32 created, quint32 modified, quint32 backedUp)
{
    _dates[0] = created;
    _dates[1] = modified;
    _dates[2] = backedUp;
    return *this;
}

PalmWriter& PalmWriter::addRecord(const QByteArray& data)
{
    _records.append(data);
    return *this;
}

PalmWriter& PalmWriter::claimRecordCount(quint16 count)
{
    _claimedCount = count;
    return *this;
}

PalmWriter& PalmWriter::claimOffset(int record, quint32 offset)
{
    _claimedOffsets.append({record, offset});
    return *this;
}

PalmWriter& PalmWriter::setTrailer(const QByteArray& bytes)
{
    _trailer = bytes;
    return *this;
}

QByteArray PalmWriter::build() const
{
    QByteArray bytes = _name.left(31).leftJustified(32, '\0');
    append16(bytes, 0); // attributes
    append16(bytes, _version);
    for (const quint32 date : _dates)
        append32(bytes, date);
    for (int i = 0; i < 3; ++i)
        append32(bytes, 0); // modification number, application info, sort info
    bytes += _type.left(4).leftJustified(4, '\0');
    bytes += _creator.left(4).leftJustified(4, '\0');
    append32(bytes, 0); // unique id seed
    append32(bytes, 0); // next record list
    append16(bytes, _claimedCount >= 0 ? static_cast<quint16>(_claimedCount)
                                       : static_cast<quint16>(_records.size()));
    auto offset = static_cast<quint32>(headerSize + entrySize * _records.size());
    for (int i = 0; i < _records.size(); ++i) {
        quint32 written = offset;
        for (const Claim& claim : _claimedOffsets) {
            if (claim.record == i)
                written = claim.offset;
        }
        append32(bytes, written);
        append32(bytes, static_cast<quint32>(i)); // attributes and unique id
        offset += static_cast<quint32>(_records.at(i).size());
    }
    return bytes + _records.join() + _trailer;
}

bool PalmWriter::write(const QString& path) const
{
    return writeFile(path, build());
}

bool writeFile(const QString& path, const QByteArray& bytes)
{
    QFile file(path);
    return file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size() && file.flush();
}

} // namespace teskel::test
