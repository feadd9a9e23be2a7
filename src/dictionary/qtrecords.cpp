// SPDX-License-Identifier: MIT
#include "dictionary/qtrecords.h"

#include "base/assertion.h"

#include <QIODevice>
#include <QtEndian>

#include <algorithm>
#include <cstring>
#include <new>

namespace
{
constexpr auto unit = "qtpalmdb.cpp";
constexpr int entrySize = 8;
constexpr qint64 maxRecordSize = qint64{64} << 20; // twice the largest word index there can be
} // namespace

void QtRecords::setIOInfo(QIODevice* device, int firstRecordOffset, unsigned short recordCount)
{
    TESKEL_ASSERT(_device == nullptr, "_device==NULL", unit);
    TESKEL_ASSERT(device->isOpen(), "device->isOpen()", unit);
    TESKEL_ASSERT(_firstRecordOffset == -1, "_firstRecordOffset==-1", unit);
    TESKEL_ASSERT(_recordCount == 0, "_recordCount==0", unit);
    _device = device;
    _firstRecordOffset = firstRecordOffset;
    _recordCount = recordCount;
}

unsigned short QtRecords::getCount()
{
    return _recordCount;
}

bool QtRecords::getRecordMetaData(RecordMetaData* data, unsigned short index)
{
    const bool hasTarget = TESKEL_ASSERT(data != nullptr, "data!=NULL", unit);
    TESKEL_ASSERT(index < _recordCount, "index<_recordCount", unit);
    if (!hasTarget || !_device || !_device->reset() ||
        !_device->seek(qint64{_firstRecordOffset} + qint64{entrySize} * index))
        return false;
    char entry[entrySize];
    const qint64 count = _device->read(entry, entrySize);
    if (count != entrySize) {
        qWarning("Cannot read record meta data");
        qWarning("bytes to read %d, bytes read %d", entrySize, static_cast<int>(count));
        return false;
    }
    data->offset = qFromBigEndian<quint32>(entry);
    std::memcpy(data->attributes, entry + 4, sizeof data->attributes);
    return true;
}

// The size may come out negative or run past the file's end.
bool QtRecords::locate(unsigned short index, qint64& offset, qint64& size)
{
    RecordMetaData entry;
    if (!getRecordMetaData(&entry, index)) {
        qWarning("Cannot get record meta data");
        return false;
    }
    offset = entry.offset;
    if (index == _recordCount - 1) {
        size = _device->size() - offset;
        return true;
    }
    if (!getRecordMetaData(&entry, static_cast<unsigned short>(index + 1))) {
        qWarning("Cannot read Record Meta data");
        return false;
    }
    size = qint64{entry.offset} - offset;
    return true;
}

Record* QtRecords::getData(unsigned short index)
{
    TESKEL_ASSERT(_device != nullptr, "_device!=NULL", unit);
    TESKEL_ASSERT(_device && _device->isOpen(), "_device->isOpen()", unit);
    TESKEL_ASSERT(_firstRecordOffset != -1, "_firstRecordOffset!=-1", unit);
    TESKEL_ASSERT(index < _recordCount, "index<_recordCount", unit);

    qint64 offset = 0;
    qint64 size = 0;
    if (!locate(index, offset, size))
        return nullptr;
    RecordPointer result(new Record);
    // Memory is taken only for bytes that the file has, and for no giant of a sparse file.
    qint64 count = std::clamp<qint64>(_device->size() - offset, 0, std::max<qint64>(size, 0));
    if (count == size) {
        if (size <= maxRecordSize)
            result->data = new (std::nothrow) char[static_cast<std::size_t>(size)];
        const bool isReady = result->data && _device->seek(offset);
        count = isReady ? _device->read(result->data, size) : 0;
    }
    if (count != size) {
        qWarning("Cannot read record,bytes to read %lld, bytes read %lld", size, count);
        return nullptr;
    }
    result->size = static_cast<quint32>(size);
    TESKEL_ASSERT(result->data != nullptr, "result->data!=NULL", unit);
    TESKEL_ASSERT(result->size != 0, "result->size!=0", unit);
    return result.release();
}
