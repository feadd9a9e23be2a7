// SPDX-License-Identifier: MIT
#include "bench/support/members.h"

#include "dictionary/container/qtpalmdb.h"
#include "dictionary/unpacking/cbuffer.h"
#include "dictionary/unpacking/cfileheader.h"

namespace teskel::bench
{

namespace
{
constexpr unsigned short firstWordRecord = 5;
} // namespace

QByteArrayList packedRecords(const QString& path)
{
    QtPalmDatabase database;
    if (database.load(path) != 0)
        qFatal("%s cannot be read", qUtf8Printable(path));
    QByteArrayList packed;
    for (unsigned short index = firstWordRecord; index < database.getNumRecords(); ++index) {
        const RecordPointer record(database.getRecords()->getData(index));
        if (!record)
            qFatal("%s: record %d cannot be read", qUtf8Printable(path), int{index});
        packed.append(QByteArray(record->data, static_cast<qsizetype>(record->size)));
    }
    return packed;
}

QByteArrayList membersOfArchive(const QByteArray& archive)
{
    QByteArrayList members;
    CBuffer buffer;
    buffer.OpenMemory(archive.constData(), static_cast<long>(archive.size()), CBuffer::Read_Mode);
    const CFileHeader mainHeader(&buffer);
    for (qsizetype start = buffer.Tell(); mainHeader.isValid();) {
        const CFileHeader header(&buffer);
        if (!header.isValid()) // the end mark
            break;
        const qsizetype end = buffer.Tell() + static_cast<qsizetype>(header.compressedSize());
        members.append(archive.mid(start, end - start));
        buffer.Seek(static_cast<long>(end), CBuffer::FromStart);
        start = end;
    }
    return members;
}

} // namespace teskel::bench
