// SPDX-License-Identifier: MIT
#include "dictionary/qtdictionary.h"

#include "base/assertion.h"
#include "dictionary/container/qtpalmdb.h"
#include "dictionary/latin1fold.h"

#include <QFileInfo>

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <limits>
#include <utility>

namespace
{
constexpr auto unit = "qtdictionary.cpp";
constexpr int maxCachedRecords = 100;
constexpr unsigned short indexRecord = 0;
constexpr unsigned short descriptionRecord = 2;
constexpr unsigned short firstWordRecord = 5;
/// Of the word index, read to open a file: that of a small dictionary is all there then.
constexpr qint64 indexBeginningBytes = 4096;

bool copyText(const char* text, std::size_t length, char* buffer, int size)
{
    if (size < 0 || static_cast<std::size_t>(size) < length + 1)
        return false;
    std::memcpy(buffer, text, length);
    buffer[length] = '\0';
    return true;
}

// A missing text compares as the empty one.
const char* orEmpty(const char* text)
{
    return TESKEL_ASSERT(text != nullptr, "buffer!=NULL", unit) ? text : "";
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
    teskel::WordIndex index = std::exchange(_index, {});
    const teskel::FileStamp stamp = std::exchange(_indexStamp, {});
    close();
    TESKEL_ASSERT(_database == nullptr, "_database==NULL", unit);
    _database = std::make_unique<QtPalmDatabase>();
    _database->load(fileName);
    _url = fileName;
    if (_database->getNumRecords() < firstWordRecord) {
        qWarning("Invalid database. Records are less than 5");
        return -1;
    }
    // A program that starts with a file opens it twice: as asked, and as the last one that was
    // open.
    if (!index.isEmpty() && stamp.isStill(_database->stamp())) {
        _index = std::move(index);
        _indexStamp = stamp;
    } else if (!readIndex(indexBeginningBytes)) {
        qWarning("Cannot get first record");
        return -1;
    }
    if (_index.isTopicIndex()) {
        qWarning("No support for topic dictionaries yet");
        return -1;
    }
    return 0;
}

// When fewer bytes than `most` come there are no more.
bool QtDictionary::readIndex(qint64 most)
{
    const teskel::FileStamp stamp = _database->stamp();
    const RecordPointer record(_database->getRecords()->getBeginning(indexRecord, most));
    if (!record)
        return false;
    TESKEL_ASSERT(record->data != nullptr, "data!=NULL", unit);
    static_assert(Record::spareBytes >= teskel::FoldedHead::bytes);
    _index.take(std::unique_ptr<char[]>(std::exchange(record->data, nullptr)), record->size,
                getWordRecordCount(), record->size < most);
    _indexStamp = stamp;
    return true;
}

int QtDictionary::close()
{
    _database.reset();
    _url = QString();
    _index.clear();
    _indexStamp = {};
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
    const teskel::TextRecord* record = getTextRecord(recordIndex);
    return record ? record->count() : 0;
}

const char* QtDictionary::getWordRecord(unsigned short recordIndex)
{
    const teskel::TextRecord* record = getTextRecord(recordIndex);
    return record ? record->text() : nullptr;
}

const char* QtDictionary::getDecompressedRecord(unsigned short index)
{
    const teskel::TextRecord* record = cachedRecord(index);
    return record ? record->text() : nullptr;
}

// Not cut to the 16 bits of the container's numbers: what lies beyond them is no other record.
const teskel::TextRecord* QtDictionary::getTextRecord(unsigned short recordIndex)
{
    return cachedRecord(recordIndex + firstWordRecord);
}

// A record that cannot be read is asked for again, for a card may come back; a damaged one is not.
const teskel::TextRecord* QtDictionary::cachedRecord(int index)
{
    if (_lastRecord != nullptr && index == _lastIndex)
        return _lastRecord;
    const teskel::TextRecord* record = _wordCache.object(index);
    if (record == nullptr)
        record = readRecord(index);
    if (record == nullptr)
        _missedRecord = index;
    _lastIndex = index;
    _lastRecord = record;
    return record;
}

const teskel::TextRecord* QtDictionary::readRecord(int index)
{
    if (_damagedRecords.contains(index))
        return nullptr;
    teskel::TextRecord* const record = decompressRecord(index).release();
    return record != nullptr && _wordCache.insert(index, record, 1) ? record : nullptr;
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
    _lastRecord = nullptr;
    _wordCache.clear();
    _damagedRecords.clear();
}

void QtDictionary::toUpper(char* buffer)
{
    if (!TESKEL_ASSERT(buffer != nullptr, "buffer!=NULL", unit))
        return;
    for (; *buffer != '\0'; ++buffer)
        *buffer = static_cast<char>(teskel::foldByte(static_cast<unsigned char>(*buffer)));
}

int QtDictionary::wordCompare(const char* a, const char* b)
{
    TESKEL_ASSERT(isOpen(), "isOpen()", unit);
    return a == b ? 0 : teskel::foldedCompare(orEmpty(a), orEmpty(b));
}

int QtDictionary::wordNCompare(const char* a, const char* b, unsigned int n)
{
    TESKEL_ASSERT(isOpen(), "isOpen()", unit);
    return a == b ? 0 : teskel::foldedCompare(orEmpty(a), orEmpty(b), n);
}

int QtDictionary::wordCompare(const char* a, const char* b, bool prefix)
{
    if (!prefix)
        return wordCompare(a, b);
    return wordNCompare(a, b, b ? static_cast<unsigned int>(std::strlen(b)) : 0);
}

// Begins in the record before a key that equals the word: with `prefix`, a match may stand at that
// record's end. Goes on record by record while all headwords compare below the word.
CursorPosition QtDictionary::findWord(const char* word, CursorPosition /*position*/, bool prefix)
{
    if (!TESKEL_ASSERT(isOpen(), "isOpen()", unit) || !word)
        return CursorPosition::invalid();
    if (!_index.isWhole() && !readIndex(QtRecords::maxRecordSize + 1)) {
        _missedRecord = indexRecord;
        return CursorPosition::invalid();
    }
    const teskel::FoldedWord wanted(word, prefix ? std::strlen(word) : teskel::wholeText);
    const unsigned short recordCount = getWordRecordCount();
    for (std::size_t i = _index.recordFor(wanted); i < recordCount; ++i) {
        const auto recordIndex = static_cast<unsigned short>(i);
        const teskel::TextRecord* record = getTextRecord(recordIndex);
        if (!record || record->count() == 0)
            break;
        const quint16 entry = record->firstNotBelow(wanted);
        if (entry == record->count())
            continue;
        return wanted.isEqual(record->word(entry)) ? CursorPosition::at(recordIndex, entry)
                                                   : CursorPosition::invalid();
    }
    return CursorPosition::invalid();
}

const char* QtDictionary::getWordAt(CursorPosition position)
{
    const auto [recordNumber, wordNumber] = position.compoundPosition;
    TESKEL_ASSERT(isOpen(), "isOpen()", unit);
    TESKEL_ASSERT(recordNumber < getWordRecordCount(),
                  "position.compoundPosition.recordNumber<getWordRecordCount()", unit);
    const bool hasWord = TESKEL_ASSERT(
        wordNumber < getTotalWordCount(recordNumber),
        "position.compoundPosition.wordNumber<getTotalWordCount(position.compoundPosition."
        "recordNumber)",
        unit);
    return hasWord ? getTextRecord(recordNumber)->word(wordNumber) : nullptr;
}

const char* QtDictionary::getWordOf(QtDictionaryIterator& iterator)
{
    const CursorPosition position = iterator.getPosition();
    TESKEL_ASSERT(iterator.isValid(position), "isValid(_position)", unit);
    const auto [recordNumber, wordNumber] = position.compoundPosition;
    const teskel::TextRecord* record = getTextRecord(recordNumber);
    return record && wordNumber < record->count() ? record->word(wordNumber) : nullptr;
}

bool QtDictionary::getWord(CursorPosition position, char* buffer, unsigned int size)
{
    const char* word = getWordAt(position);
    if (!word)
        return false;
    const std::size_t needed = std::strlen(word) + 1;
    if (size < needed)
        return false;
    std::memcpy(buffer, word, needed);
    return true;
}

bool QtDictionary::getDescription(CursorPosition position, char* buffer, unsigned int* size)
{
    const char* word = getWordAt(position);
    if (!word) {
        *size = 0;
        return false;
    }
    const char* article = word + std::strlen(word) + 1;
    const unsigned int room = *size;
    *size = static_cast<unsigned int>(std::strlen(article)) + 1;
    if (room < *size)
        return false;
    std::memcpy(buffer, article, *size);
    return true;
}

bool QtDictionary::getRandomWord(char* buffer, int size)
{
    const unsigned short recordCount = getWordRecordCount();
    if (recordCount == 0)
        return false;
    const auto recordIndex = static_cast<quint16>(random() % recordCount);
    const unsigned short wordCount = getTotalWordCount(recordIndex);
    if (wordCount == 0)
        return false;
    const auto word = static_cast<quint16>(random() % wordCount);
    const auto room = static_cast<unsigned int>(std::max(size, 0));
    return getWord(CursorPosition::at(recordIndex, word), buffer, room);
}

QtDictionary::QtDictionaryIterator* QtDictionary::createIterator()
{
    return new QtDictionaryIterator(this);
}
