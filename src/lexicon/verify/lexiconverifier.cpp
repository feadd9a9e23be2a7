// SPDX-License-Identifier: MIT
#include "lexicon/verify/lexiconverifier.h"

#include "dictionary/latin1fold.h"
#include "lexicon/entries/lexiconentry.h"
#include "lexicon/file/readablefile.h"
#include "lexicon/text/utf8.h"

#include <QFile>

#include <cstring>
#include <limits>

namespace teskel
{

namespace
{

constexpr unsigned indexRecord = 0;
constexpr unsigned descriptionRecord = 2;

/// Whether a reader needs the record: 1, 3 and 4 have no use.
bool isRead(unsigned number)
{
    return number == indexRecord || number == descriptionRecord ||
           number >= limits::firstWordRecord;
}

std::string recordName(unsigned number)
{
    return "record " + std::to_string(number);
}

qint64 endOfRecordList(QtRecords& records)
{
    return QtPalmDatabase::headerBytes + qint64{QtRecords::entryBytes} * records.getCount();
}

std::string inQuotes(const std::string& latin1)
{
    return '"' + utf8::fromLatin1(latin1) + '"';
}

} // namespace

bool LexiconVerifier::run(const std::string& path, std::string& error)
{
    QFile file(QFile::decodeName(path.c_str()));
    // Records are read where they stand, which a pipe does not allow.
    if (!openReadable(file) || !file.seek(0)) {
        error = whyUnreadable(file, path);
        return false;
    }
    if (!checkContainer(file.fileName()) || !checkCreator() || !checkRecords() || !checkOffsets())
        return true;
    checkIndex();
    checkDescription();
    for (unsigned number = limits::firstWordRecord; number < _records.getCount(); ++number)
        checkWordRecord(number);
    return true;
}

void LexiconVerifier::report(const std::string& check, const std::string& sentence)
{
    _findings.push_back(check + ": " + sentence);
}

bool LexiconVerifier::checkContainer(const QString& name)
{
    if (_database.load(name) != 0)
        report("container", "the file ends within its header of 78 bytes");
    else if (_database.fileSize() < endOfRecordList(_records))
        report("container", "the file ends within its list of " +
                                std::to_string(_records.getCount()) + " records");
    return _findings.empty();
}

bool LexiconVerifier::checkCreator()
{
    if (std::strcmp(_database.getCreator(), "TSKL") != 0)
        report("creator", "the creator is not \"TSKL\"");
    return _findings.empty();
}

bool LexiconVerifier::checkRecords()
{
    if (_records.getCount() < limits::firstWordRecord) {
        report("records", "there are " + std::to_string(_records.getCount()) +
                              " records, a dictionary has at least 5");
        return false;
    }
    _wordRecords = _records.getCount() - limits::firstWordRecord;
    return true;
}

bool LexiconVerifier::checkOffsets()
{
    const qint64 fileSize = _database.fileSize();
    qint64 earliest = endOfRecordList(_records);
    std::vector<qint64> sizes;
    for (unsigned i = 0; i < _records.getCount(); ++i) {
        RecordExtent extent;
        _records.locate(static_cast<unsigned short>(i), extent);
        if (extent.offset < earliest)
            report("offsets", recordName(i) + " begins at " + std::to_string(extent.offset) +
                                  ", before the end of what stands in front of it");
        else if (extent.offset > fileSize)
            report("offsets", recordName(i) + " begins at " + std::to_string(extent.offset) +
                                  ", the file ends at " + std::to_string(fileSize));
        if (!_findings.empty())
            return false;
        earliest = extent.offset;
        sizes.push_back(extent.size);
    }
    for (unsigned i = 0; i < sizes.size(); ++i) {
        if (sizes[i] == 0 && isRead(i))
            report("offsets", recordName(i) + " has no bytes");
        else if (sizes[i] > limits::packedBytes)
            report("offsets", recordName(i) + " has " + std::to_string(sizes[i]) +
                                  " bytes, the reader takes none above 67,108,864");
    }
    return _findings.empty();
}

void LexiconVerifier::checkIndex()
{
    if (const RecordPointer record(_records.getData(indexRecord)); record)
        _index.parse(record->data, record->size, std::numeric_limits<std::size_t>::max());
    if (_index.isTopicIndex())
        report("index", "the first key begins with \"#\", which marks a topic dictionary");
    if (!_index.isEnded())
        report("index", "the list of keys is not ended by an empty key");
    if (_index.count() != _wordRecords)
        report("index", "there are " + std::to_string(_index.count()) + " keys for " +
                            std::to_string(_wordRecords) + " word records");
}

std::optional<TextRecord> LexiconVerifier::unpacked(unsigned number, const char* check)
{
    const RecordPointer packed(_records.getData(static_cast<unsigned short>(number)));
    MemberBlock block;
    const MemberStatus status =
        packed ? decodeMember(packed->data, packed->size, block, TextRecord::spareBytes)
               : MemberStatus::BadHeader;
    if (status == MemberStatus::Ok)
        return TextRecord(std::move(block));
    report(check, recordName(number) + " does not unpack: " + memberStatusText(status));
    return std::nullopt;
}

void LexiconVerifier::checkDescription()
{
    const std::optional<TextRecord> record = unpacked(descriptionRecord, "description");
    if (!record)
        return;
    const std::size_t length = std::strlen(record->text());
    if (length >= record->size())
        report("description", "the description is not ended by a NUL");
    else if (length > limits::descriptionBytes)
        report("description", "the description has " + std::to_string(length) +
                                  " bytes, the reader shows none above 511");
}

void LexiconVerifier::checkWordRecord(unsigned number)
{
    const std::optional<TextRecord> record = unpacked(number, "unpack");
    if (!record || !checkLayout(number, *record))
        return;
    checkKey(number, record->word(0));
    for (quint16 entry = 0; entry < record->count(); ++entry)
        checkOrder(number, record->word(entry));
    _headwords += record->count();
}

bool LexiconVerifier::checkLayout(unsigned number, const TextRecord& record)
{
    if (record.count() == 0) {
        report("layout", recordName(number) + " holds no entry");
        return false;
    }
    const bool isCut = record.end() > record.size();
    const int wholeEntries = record.count() - (isCut ? 1 : 0);
    for (int entry = 0; entry < wholeEntries; ++entry) {
        const std::string headword = record.word(static_cast<quint16>(entry));
        if (headword.size() > limits::headwordBytes)
            report(
                "layout",
                recordName(number) + ": a headword has " + std::to_string(headword.size()) +
                    " bytes, the reader shows none above 511: " + inQuotes(headword.substr(0, 40)));
    }
    if (isCut)
        report("layout", recordName(number) + " ends within an entry");
    else if (record.end() == record.size())
        report("layout", recordName(number) + " is not ended by an empty headword");
    else if (record.end() + 1 != record.size())
        report("layout", recordName(number) + " goes on behind the empty headword that ends it");
    return record.end() < record.size();
}

void LexiconVerifier::checkOrder(unsigned number, const char* headword)
{
    if (_hasLastHeadword && foldedCompare(_lastHeadword.c_str(), headword) > 0)
        report("order", recordName(number) + ": " + inQuotes(headword) + " stands behind " +
                            inQuotes(_lastHeadword));
    _lastHeadword = headword;
    _hasLastHeadword = true;
}

void LexiconVerifier::checkKey(unsigned number, const char* firstHeadword)
{
    const unsigned wordRecord = number - limits::firstWordRecord;
    if (wordRecord >= _index.count())
        return; // reported with the index
    const char* key = _index.key(wordRecord);
    if (foldedCompare(key, firstHeadword) > 0)
        report("keys", "the key " + inQuotes(key) + " of " + recordName(number) +
                           " sorts after its first headword " + inQuotes(firstHeadword));
    if (_hasLastHeadword && foldedCompare(_lastHeadword.c_str(), key) >= 0)
        report("keys", "the key " + inQuotes(key) + " of " + recordName(number) +
                           " does not sort after " + inQuotes(_lastHeadword) +
                           " in the record before it");
}

} // namespace teskel
