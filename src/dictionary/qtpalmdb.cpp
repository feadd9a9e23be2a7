// SPDX-License-Identifier: MIT
#include "dictionary/qtpalmdb.h"

#include "base/assertion.h"

#include <QFileInfo>
#include <QtEndian>

#include <cstring>

namespace
{
constexpr auto unit = "qtpalmdb.cpp";
constexpr int headerSize = 78;

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
    char bytes[headerSize] = {};
    const qint64 count = _device->read(bytes, headerSize);
    _header = parseHeader(bytes); // what a short file has of it, too
    return count == headerSize;
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
