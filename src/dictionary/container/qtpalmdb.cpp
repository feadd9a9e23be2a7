// SPDX-License-Identifier: MIT
// The container: QtPalmDatabase, and the QtRecords in it. Warnings name this unit for both.
#include "dictionary/container/qtpalmdb.h"

#include "base/assertion.h"

#include <QFileInfo>
#include <QtEndian>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <new>

#include <unistd.h>

namespace
{
constexpr auto unit = "qtpalmdb.cpp";
/// Records of no more bytes are read without asking first whether the file has them: a word record
/// has some eight thousand.
constexpr qint64 maxUnaskedBytes = qint64{64} << 10;

// Where a device is a file, in one system call.
qint64 readAt(QIODevice& device, qint64 offset, char* bytes, qint64 size)
{
    const auto* file = qobject_cast<QFileDevice*>(&device);
    const int handle = file ? file->handle() : -1;
    if (handle < 0)
        return device.seek(offset) ? device.read(bytes, size) : -1;
    qint64 done = 0;
    while (done < size) {
        const ssize_t count = ::pread(handle, bytes + done, static_cast<std::size_t>(size - done),
                                      static_cast<off_t>(offset + done));
        if (count < 0 && errno == EINTR)
            continue;
        if (count <= 0)
            return count < 0 && done == 0 ? -1 : done;
        done += count;
    }
    return done;
}

// A pipe would keep the program waiting, and no record of it could be reached.
bool isPlainFile(const QString& fileName)
{
    return QFileInfo(fileName).isFile();
}

PalmHeader parseHeader(const char* bytes)
{
    PalmHeader header;
    header.version = qFromBigEndian<quint16>(bytes + 34);
    std::memcpy(header.type, bytes + 60, sizeof header.type);
    std::memcpy(header.creator, bytes + 64, sizeof header.creator);
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
    return hasTarget && readEntries({data, 1}, index) == 1;
}

// Reads as many entries as `entries` has, one or two, from `index` on. Returns how many there were,
// with a warning when one was missing.
std::size_t QtRecords::readEntries(std::span<RecordMetaData> entries, unsigned short index)
{
    char bytes[2 * entryBytes];
    if (!_device)
        return 0;
    const qint64 count = readAt(*_device, qint64{_firstRecordOffset} + qint64{entryBytes} * index,
                                bytes, qint64{entryBytes} * std::ssize(entries));
    std::size_t whole = 0;
    for (; whole < entries.size() && qint64{entryBytes} * (qint64(whole) + 1) <= count; ++whole) {
        const char* entry = bytes + whole * entryBytes;
        entries[whole].offset = qFromBigEndian<quint32>(entry);
        std::memcpy(entries[whole].attributes, entry + 4, sizeof entries[whole].attributes);
    }
    if (whole < entries.size()) {
        qWarning("Cannot read record meta data");
        qWarning("bytes to read %d, bytes read %d", entryBytes,
                 static_cast<int>(count - qint64{entryBytes} * qint64(whole)));
    }
    return whole;
}

bool QtRecords::locate(unsigned short index, RecordExtent& extent)
{
    const bool isLast = index == _recordCount - 1;
    RecordMetaData entries[2];
    std::size_t found = 0;
    if (index + 1 < _recordCount) {
        found = readEntries(entries, index);
    } else {
        found = getRecordMetaData(&entries[0], index) ? 1 : 0;
        if (found == 1 && !isLast)
            found += getRecordMetaData(&entries[1], static_cast<unsigned short>(index + 1)) ? 1 : 0;
    }
    if (found == 0) {
        qWarning("Cannot get record meta data");
        return false;
    }
    if (found == 1 && !isLast) {
        qWarning("Cannot read Record Meta data");
        return false;
    }
    extent.offset = entries[0].offset;
    extent.size = (isLast ? _device->size() : qint64{entries[1].offset}) - extent.offset;
    return true;
}

Record* QtRecords::getData(unsigned short index)
{
    return getBeginning(index, maxRecordSize);
}

Record* QtRecords::getBeginning(unsigned short index, qint64 most)
{
    TESKEL_ASSERT(_device != nullptr, "_device!=NULL", unit);
    TESKEL_ASSERT(_device && _device->isOpen(), "_device->isOpen()", unit);
    TESKEL_ASSERT(_firstRecordOffset != -1, "_firstRecordOffset!=-1", unit);
    TESKEL_ASSERT(index < _recordCount, "index<_recordCount", unit);

    RecordExtent extent;
    if (!locate(index, extent))
        return nullptr;
    const auto [offset, size] = extent;
    const qint64 wanted = std::min(size, most);
    // Memory is taken only for bytes that the file has, and for no giant of a sparse file.
    const bool isAsked = size <= 0 || size > maxUnaskedBytes || wanted < size;
    qint64 count = size;
    if (isAsked)
        count = std::clamp<qint64>(_device->size() - offset, 0, std::max<qint64>(size, 0));
    const bool isThere = count == size;
    RecordPointer result(new Record);
    if (isThere) {
        if (size <= maxRecordSize)
            result->data =
                new (std::nothrow) char[static_cast<std::size_t>(wanted) + Record::spareBytes];
        count = result->data ? readAt(*_device, offset, result->data, wanted) : 0;
    }
    if (!isThere || !result->data || count != wanted) {
        qWarning("Cannot read record,bytes to read %lld, bytes read %lld", size, count);
        return nullptr;
    }
    result->size = static_cast<quint32>(wanted);
    std::memset(result->data + wanted, 0, Record::spareBytes);
    TESKEL_ASSERT(result->data != nullptr, "result->data!=NULL", unit);
    TESKEL_ASSERT(result->size != 0, "result->size!=0", unit);
    return result.release();
}
