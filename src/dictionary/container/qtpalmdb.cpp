// SPDX-License-Identifier: MIT
// The container: QtPalmDatabase, and the QtRecords in it. Warnings name this unit for both.
#include "dictionary/container/qtpalmdb.h"

#include "base/assertion.h"

#include <QFileInfo>
#include <QtEndian>

#include <algorithm>
#include <cstring>
#include <new>

namespace
{
constexpr auto unit = "qtpalmdb.cpp";
constexpr qint64 maxRecordSize = qint64{64} << 20; // twice the largest word index there can be

// A pipe would keep the program waiting, and no record of it could be reached.
bool isPlainFile(const QString& fileName)
{
    return QFileInfo(fileName).isFile();
}

PalmHeader parseHeader(const char* bytes)
{
    PalmHeader header;
    std::memcpy(header.name, bytes, sizeof header.name);
    header.attributes = qFromBigEndian<quint16>(bytes + 32);
    header.version = qFromBigEndian<quint16>(bytes + 34);
    header.creationDate = qFromBigEndian<quint32>(bytes + 36);
    header.modificationDate = qFromBigEndian<quint32>(bytes + 40);
    header.lastBackupDate = qFromBigEndian<quint32>(bytes + 44);
    header.modificationNumber = qFromBigEndian<quint32>(bytes + 48);
    header.appInfoOffset = qFromBigEndian<quint32>(bytes + 52);
    header.sortInfoOffset = qFromBigEndian<quint32>(bytes + 56);
    std::memcpy(header.type, bytes + 60, sizeof header.type);
    std::memcpy(header.creator, bytes + 64, sizeof header.creator);
    header.uniqueIdSeed = qFromBigEndian<quint32>(bytes + 68);
    header.nextRecordList = qFromBigEndian<quint32>(bytes + 72);
    header.recordCount = qFromBigEndian<quint16>(bytes + 76);
    return header;
}
} // namespace

QtPalmDatabase::~QtPalmDatabase()
{
    clean();
}

int QtPalmDatabase::load(const char* fileName)
{
    return load(QString::fromLatin1(fileName));
}

int QtPalmDatabase::load(const QString& fileName)
{
    auto device = std::make_unique<QFile>(fileName);
    // Records are read whole, once: a buffer between would only copy them.
    if (!isPlainFile(fileName) || !device->open(QIODevice::ReadOnly | QIODevice::Unbuffered)) {
        qWarning("Cannot open file %s", qUtf8Printable(fileName));
        return -1;
    }
    clean();
    _device = std::move(device);
    _url = fileName;
    if (!readHeader()) {
        _records.forgetDevice();
        return -1;
    }
    _records.setIOInfo(_device.get(), static_cast<int>(_device->pos()), _header.recordCount);
    return 0;
}

bool QtPalmDatabase::readHeader()
{
    verifyOpen(__LINE__);
    char bytes[headerBytes] = {};
    const qint64 count = _device->read(bytes, headerBytes);
    _header = parseHeader(bytes); // what a short file has of it, too
    return count == headerBytes;
}

void QtPalmDatabase::verifyOpen(int line) const
{
    teskel::verify(_device != nullptr, "_device!=NULL", unit, line);
    teskel::verify(_device && _device->isOpen(), "_device->isOpen()", unit, line);
}

void QtPalmDatabase::clean()
{
    _header = {};
    closeFile();
}

void QtPalmDatabase::closeFile()
{
    TESKEL_ASSERT(_url.isNull() == (_device == nullptr),
                  "((_url==0) && (_device==0))|| ((_url!=0) && (_device!=0))", unit);
    _device.reset();
    _url = QString();
}

int QtPalmDatabase::save(const char* /*fileName*/)
{
    return 0;
}

const char* QtPalmDatabase::getCreator() const
{
    verifyOpen(__LINE__);
    std::memcpy(_creatorText, _header.creator, sizeof _header.creator);
    return _creatorText;
}

const char* QtPalmDatabase::getType() const
{
    verifyOpen(__LINE__);
    std::memcpy(_typeText, _header.type, sizeof _header.type);
    return _typeText;
}

unsigned short QtPalmDatabase::getNumRecords() const
{
    verifyOpen(__LINE__);
    return _header.recordCount;
}

short QtPalmDatabase::getVersion() const
{
    verifyOpen(__LINE__);
    return static_cast<short>(_header.version);
}

quint32 QtPalmDatabase::getCreationDate() const
{
    verifyOpen(__LINE__);
    return 0;
}

quint32 QtPalmDatabase::getModificationDate() const
{
    verifyOpen(__LINE__);
    return 0;
}

quint32 QtPalmDatabase::getLastBackupDate() const
{
    verifyOpen(__LINE__);
    return 0;
}

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
        !_device->seek(qint64{_firstRecordOffset} + qint64{entryBytes} * index))
        return false;
    char entry[entryBytes];
    const qint64 count = _device->read(entry, entryBytes);
    if (count != entryBytes) {
        qWarning("Cannot read record meta data");
        qWarning("bytes to read %d, bytes read %d", entryBytes, static_cast<int>(count));
        return false;
    }
    data->offset = qFromBigEndian<quint32>(entry);
    std::memcpy(data->attributes, entry + 4, sizeof data->attributes);
    return true;
}

bool QtRecords::locate(unsigned short index, RecordExtent& extent)
{
    RecordMetaData entry;
    if (!getRecordMetaData(&entry, index)) {
        qWarning("Cannot get record meta data");
        return false;
    }
    extent.offset = entry.offset;
    if (index == _recordCount - 1) {
        extent.size = _device->size() - extent.offset;
        return true;
    }
    if (!getRecordMetaData(&entry, static_cast<unsigned short>(index + 1))) {
        qWarning("Cannot read Record Meta data");
        return false;
    }
    extent.size = qint64{entry.offset} - extent.offset;
    return true;
}

Record* QtRecords::getData(unsigned short index)
{
    TESKEL_ASSERT(_device != nullptr, "_device!=NULL", unit);
    TESKEL_ASSERT(_device && _device->isOpen(), "_device->isOpen()", unit);
    TESKEL_ASSERT(_firstRecordOffset != -1, "_firstRecordOffset!=-1", unit);
    TESKEL_ASSERT(index < _recordCount, "index<_recordCount", unit);

    RecordExtent extent;
    if (!locate(index, extent))
        return nullptr;
    const auto [offset, size] = extent;
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
