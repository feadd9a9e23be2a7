// SPDX-License-Identifier: MIT
#include "lexicon/file/palmdatabasewriter.h"

#include <QByteArray>
#include <QDataStream>
#include <QIODevice>

#include <limits>

namespace teskel
{

namespace
{

constexpr qsizetype nameBytes = 32;
constexpr uint64_t headerBytes = 78;
constexpr char type[] = "DICT";
constexpr char creator[] = "TSKL";

std::string_view viewOf(const QByteArray& bytes)
{
    return {bytes.constData(), static_cast<size_t>(bytes.size())};
}

QByteArray header(std::string_view name, quint16 recordCount)
{
    QByteArray bytes =
        QByteArray(name.data(), static_cast<qsizetype>(name.size())).left(nameBytes - 1);
    bytes.append(nameBytes - bytes.size(), '\0');
    QDataStream out(&bytes, QIODevice::Append);
    out << quint16{0}  // attributes
        << quint16{0}  // version
        << quint32{0}  // creation date
        << quint32{0}  // modification date
        << quint32{0}  // last backup date
        << quint32{0}  // modification number
        << quint32{0}  // application info
        << quint32{0}; // sort info
    out.writeRawData(type, 4);
    out.writeRawData(creator, 4);
    out << quint32{0} // unique id seed
        << quint32{0} // next record list
        << recordCount;
    return bytes;
}

} // namespace

PalmDatabaseWriter::PalmDatabaseWriter(PendingFile& file, std::string_view name,
                                       uint16_t recordCount)
    : _file(file)
    , _recordCount(recordCount)
{
    write(viewOf(header(name, recordCount)));
    write(viewOf(recordList())); // room for the list; the offsets are known in the end
}

void PalmDatabaseWriter::write(std::string_view bytes)
{
    _size += bytes.size();
    _file.write(bytes);
}

void PalmDatabaseWriter::add(std::string_view record)
{
    _offsets.push_back(static_cast<uint32_t>(_size));
    write(record);
}

QByteArray PalmDatabaseWriter::recordList() const
{
    QByteArray list;
    QDataStream out(&list, QIODevice::WriteOnly);
    for (quint32 i = 0; i < _recordCount; ++i) {
        out << (i < _offsets.size() ? _offsets[i] : 0);
        out << i; // one byte of attributes, none of them set, and three of the unique id
    }
    return list;
}

bool PalmDatabaseWriter::finish()
{
    _file.seek(headerBytes);
    _file.write(viewOf(recordList()));
    return _size <= std::numeric_limits<uint32_t>::max();
}

} // namespace teskel
