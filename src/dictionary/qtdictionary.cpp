// SPDX-License-Identifier: MIT
#include "dictionary/qtdictionary.h"

#include "base/assertion.h"
#include "dictionary/qtpalmdb.h"

#include <QFileInfo>

#include <cstring>
#include <limits>

namespace
{
constexpr auto unit = "qtdictionary.cpp";
constexpr int maxCachedRecords = 100;
constexpr unsigned short indexRecord = 0;
constexpr unsigned short descriptionRecord = 2;
constexpr unsigned short firstWordRecord = 5;

bool copyText(const char* text, std::size_t length, char* buffer, int size)
{
    if (size < 0 || static_cast<std::size_t>(size) < length + 1)
        return false;
    std::memcpy(buffer, text, length);
    buffer[length] = '\0';
    return true;
}
} // namespace

QtDictionary::QtDictionary()
    : _wordCache(maxCachedRecords)
{
}

QtDictionary::~QtDictionary()
{
    QtDictionary::close();
}

int QtDictionary::open(const char* fileName)
{
    return open(QString::fromLatin1(fileName));
}

int QtDictionary::open(const QString& fileName)
{
    if (!isValidDictionary(fileName))
        return -1;
    close();
    TESKEL_ASSERT(_database == nullptr, "_database==NULL", unit);
    _database = std::make_unique<QtPalmDatabase>();
    _database->load(fileName);
    _url = fileName;
    if (_database->getNumRecords() < firstWordRecord) {
        qWarning("Invalid database. Records are less than 5");
        return -1;
    }
    if (!loadIndex()) {
        qWarning("Cannot get first record");
        return -1;
    }
    if (_index.isTopicIndex()) {
        qWarning("No support for topic dictionaries yet");
        return -1;
    }
    return 0;
}

// Reads the word index, unless it is held already.
bool QtDictionary::loadIndex()
{
    if (_index.isLoaded())
        return true;
    const RecordPointer record(_database->getRecords()->getData(indexRecord));
    if (!record)
        return false;
    TESKEL_ASSERT(record->data != nullptr, "data!=NULL", unit);
    _index.parse(record->data, record->size, getWordRecordCount());
    return true;
}

int QtDictionary::close()
{
    _database.reset();
    _url = QString();
    _index.clear();
    clearWordCache();
    return 0;
}

bool QtDictionary::isOpen()
{
    return _database != nullptr;
}

bool QtDictionary::isValidDictionary(const char* fileName)
{
    return isValidDictionary(QString::fromLatin1(fileName));
}

bool QtDictionary::isValidDictionary(const QString& fileName)
{
    QtPalmDatabase database;
    return database.load(fileName) != -1 && std::strcmp(database.getCreator(), "TSKL") == 0;
}

bool QtDictionary::getName(char* buffer, int size)
{
    TESKEL_ASSERT(isOpen(), "isOpen()", unit);
    const QByteArray name = QFileInfo(_url).baseName().toLatin1();
    return copyText(name.constData(), static_cast<std::size_t>(name.size()), buffer, size);
}

bool QtDictionary::getDescription(char* buffer, int size)
{
    TESKEL_ASSERT(isOpen(), "isOpen()", unit);
    const char* text = getDecompressedRecord(descriptionRecord);
    return text && copyText(text, std::strlen(text), buffer, size);
}

unsigned short QtDictionary::getWordRecordCount()
{
    const unsigned short count = isOpen() ? _database->getNumRecords() : 0;
    return count < firstWordRecord ? 0 : static_cast<unsigned short>(count - firstWordRecord);
}

unsigned short QtDictionary::getTotalWordCount(unsigned short recordIndex)
{
    TESKEL_ASSERT(recordIndex < getWordRecordCount(), "recordIndex<getWordRecordCount()", unit);
    const teskel::TextRecord* record = cachedWordRecord(recordIndex);
    return record ? record->count() : 0;
}

const char* QtDictionary::getWordRecord(unsigned short recordIndex)
{
    const teskel::TextRecord* record = cachedWordRecord(recordIndex);
    return record ? record->text() : nullptr;
}

const char* QtDictionary::getDecompressedRecord(unsigned short index)
{
    const teskel::TextRecord* record = cachedRecord(index);
    return record ? record->text() : nullptr;
}

// Not cut to the 16 bits of the container's numbers: what lies beyond them is no other record.
const teskel::TextRecord* QtDictionary::cachedWordRecord(unsigned short recordIndex)
{
    return cachedRecord(recordIndex + firstWordRecord);
}

// A record that cannot be read is asked for again, for a card may come back; a damaged one is not.
const teskel::TextRecord* QtDictionary::cachedRecord(int index)
{
    if (const teskel::TextRecord* cached = _wordCache.object(index))
        return cached;
    if (_damagedRecords.contains(index))
        return nullptr;
    std::unique_ptr<teskel::TextRecord> record = decompressRecord(index);
    if (!record)
        return nullptr;
    teskel::TextRecord* kept = record.release();
    return _wordCache.insert(index, kept, 1) ? kept : nullptr;
}

std::unique_ptr<teskel::TextRecord> QtDictionary::decompressRecord(int index)
{
    if (!TESKEL_ASSERT(isOpen(), "isOpen()", unit))
        return nullptr;
    QtRecords* records = _database->getRecords();
    TESKEL_ASSERT(index < records->getCount(), "recordIndex<records->getCount()", unit);
    if (index > std::numeric_limits<unsigned short>::max())
        return nullptr;
    const RecordPointer metaData(records->getData(static_cast<unsigned short>(index)));
    if (!metaData)
        return nullptr;
    TESKEL_ASSERT(metaData->data != nullptr, "metaData->data!=NULL", unit);
    TESKEL_ASSERT(metaData->size != 0, "metaData->size!=0", unit);
    teskel::MemberBlock block;
    const teskel::MemberStatus status =
        teskel::decodeMember(metaData->data, metaData->size, block, teskel::TextRecord::spareBytes);
    if (!block.data) {
        if (status != teskel::MemberStatus::OutOfMemory)
            _damagedRecords.insert(index);
        qWarning("Decompressed record is null");
        return nullptr;
    }
    return std::make_unique<teskel::TextRecord>(std::move(block));
}

void QtDictionary::clearWordCache()
{
    _wordCache.clear();
    _damagedRecords.clear();
}
