// SPDX-License-Identifier: MIT
#include "lexicon/repair/salvage.h"

#include "dictionary/container/qtpalmdb.h"
#include "lexicon/entries/lexiconentry.h"
#include "lexicon/file/lexiconfile.h"
#include "lexicon/text/counted.h"
#include "lexicon/text/givenback.h"
#include "lexicon/text/utf8.h"

#include <algorithm>
#include <cstring>

namespace teskel
{

namespace
{

constexpr unsigned indexRecord = 0;
constexpr unsigned descriptionRecord = 2;

/// No packed record is longer: 32,767 bytes and their header grow by less than the half.
constexpr qint64 longestMember = qint64{128} << 10;
constexpr qint64 searchStep = qint64{1} << 20;
/// The first bytes of a member.
constexpr std::string_view memberId = "\x60\xEA";

/// What a member's header may have besides, bytes: an archiver writes no longer one.
constexpr int longestHeader = 2600;
constexpr qsizetype beginningBytes = 4;

/// Whether a member can begin with these bytes, which tells what is worth reading on.
bool mayBeMember(QByteArrayView bytes)
{
    if (bytes.size() < beginningBytes || !bytes.startsWith(memberId.data()))
        return false;
    const auto low = static_cast<unsigned char>(bytes[2]);
    const auto high = static_cast<unsigned char>(bytes[3]);
    return low + (high << 8) <= longestHeader;
}

std::string inQuotes(std::string_view latin1)
{
    return '"' + utf8::fromLatin1(latin1) + '"';
}

std::string recordName(unsigned number)
{
    return "record " + std::to_string(number);
}

/// How many records the list can name that lies within so many bytes.
unsigned mostListed(qint64 fileSize)
{
    const qint64 listBytes = fileSize - QtPalmDatabase::headerBytes;
    return static_cast<unsigned>(std::max<qint64>(listBytes / QtRecords::entryBytes, 0));
}

} // namespace

bool Salvage::read(const std::string& path, std::string& error)
{
    if (!openLexiconFile(_file, path, error))
        return false;
    QtPalmDatabase database;
    if (database.load(_file.fileName()) == 0) {
        QtRecords& records = *database.getRecords();
        readIndex(records);
        readDescription(records);
        for (unsigned number = limits::firstWordRecord; number < records.getCount(); ++number)
            readWordRecord(records, number);
    } else {
        lose("the header is cut off");
    }
    searchForRecords();
    if (!_hasDescription)
        lose("record 2 does not unpack: the description is lost");
    return true;
}

void Salvage::readIndex(QtRecords& records)
{
    if (mostListed(_file.size()) <= indexRecord)
        return;
    if (const RecordPointer record(records.getData(indexRecord)); record)
        _index = KeyList({record->data, record->size});
}

/// Reads on behind the record's end as the list has it, because that may be what is damaged.
MemberStatus Salvage::unpackAt(qint64 offset, MemberBlock& block)
{
    const bool isThere = _file.seek(offset) && mayBeMember(_file.peek(beginningBytes));
    return isThere ? unpack(_file.read(longestMember), offset, block) : MemberStatus::BadHeader;
}

/// `bytes` stand at `offset` in the file.
MemberStatus Salvage::unpack(QByteArrayView bytes, qint64 offset, MemberBlock& block)
{
    if (!mayBeMember(bytes))
        return MemberStatus::BadHeader;
    const MemberStatus status = decodeMember(
        bytes.constData(), static_cast<std::size_t>(bytes.size()), block, TextRecord::spareBytes);
    if (status == MemberStatus::Ok)
        _known.insert(offset);
    return status;
}

void Salvage::readDescription(QtRecords& records)
{
    RecordExtent extent;
    MemberBlock block;
    const unsigned listed = std::min<unsigned>(records.getCount(), mostListed(_file.size()));
    if (listed <= descriptionRecord || !records.locate(descriptionRecord, extent) ||
        unpackAt(extent.offset, block) != MemberStatus::Ok)
        return;
    _hasDescription = true;
    _description.assign(block.data.get(), ::strnlen(block.data.get(), block.size));
    _hasReferences = _hasReferences || givenback::hasReferences(_description);
}

void Salvage::readWordRecord(QtRecords& records, unsigned number)
{
    RecordExtent extent;
    MemberBlock block;
    if (number >= mostListed(_file.size()) ||
        !records.locate(static_cast<unsigned short>(number), extent)) {
        loseRecord(number, {" is", " are"}, " not in the record list any more");
        return;
    }
    const MemberStatus status = unpackAt(extent.offset, block);
    if (status == MemberStatus::Ok)
        takeEntries(TextRecord(std::move(block)), recordName(number));
    else
        loseRecord(number, {" does", " do"},
                   " not unpack: " + std::string(memberStatusText(status)) +
                       headwordsOf(number - limits::firstWordRecord));
}

/// Joins records that follow each other when the same is known of them, which may be thousands.
void Salvage::loseRecord(unsigned number, const Fate& fate, const std::string& reason)
{
    const bool goesOn = number == _lost.next && reason == _lost.reason;
    if (goesOn)
        _losses.pop_back();
    else
        _lost = {number, number, reason};
    _lost.next = number + 1;
    if (_lost.first == number)
        lose(recordName(number).append(fate.one) + reason);
    else
        lose("records " + std::to_string(_lost.first) + " to " + std::to_string(number) +
             std::string(fate.many) + reason);
}

/// The end of a sentence about a record that is lost, as far as the index knows it.
std::string Salvage::headwordsOf(unsigned wordRecord) const
{
    if (wordRecord >= _index.count())
        return {};
    std::string text = "; its headwords are those from " + inQuotes(_index.key(wordRecord));
    if (wordRecord + 1 < _index.count())
        text += " to before " + inQuotes(_index.key(wordRecord + 1));
    return text;
}

void Salvage::takeEntries(const TextRecord& record, const std::string& name)
{
    const quint16 count = record.count();
    for (quint16 entry = 0; entry < count; ++entry) {
        const char* headword = record.word(entry);
        const char* article = headword + std::strlen(headword) + 1;
        const bool isCut = entry + 1 == count && record.end() > record.size();
        if (!isCut) {
            take(headword, article);
        } else if (article > record.text() + record.size()) {
            lose(name + " ends within a headword, which is left out: " + inQuotes(headword));
        } else {
            lose(name + " ends within the article of " + inQuotes(headword) +
                 "; what is there is kept");
            take(headword, article);
        }
    }
    if (count == 0)
        lose(name + " holds no entry");
    else if (record.end() + 1 < record.size())
        lose(name + " goes on behind its end; " +
             counted(record.size() - record.end() - 1, "byte is", "bytes are") + " left out");
}

void Salvage::take(std::string_view headword, std::string_view article)
{
    _text.assign(headword).append(1, '\0').append(article).append(1, '\0');
    LexiconEntry entry;
    entry.text = _text.data();
    entry.headwordLength = static_cast<uint16_t>(headword.size());
    entry.articleLength = static_cast<uint32_t>(article.size());
    _entries.append(entry);
    _hasReferences = _hasReferences || givenback::hasReferences(article);
}

/// Each place may be one where a member begins, so none is read for itself.
void Salvage::searchForRecords()
{
    for (qint64 begin = 0; _file.seek(begin); begin += searchStep) {
        const QByteArray bytes = _file.read(searchStep + longestMember);
        for (qsizetype at = bytes.indexOf(memberId.data()); at >= 0 && at < searchStep;
             at = bytes.indexOf(memberId.data(), at + 1)) {
            MemberBlock block;
            const qsizetype length = std::min<qsizetype>(bytes.size() - at, longestMember);
            if (!_known.contains(begin + at) && unpack(QByteArrayView(bytes).sliced(at, length),
                                                       begin + at, block) == MemberStatus::Ok)
                takeFoundRecord(std::move(block), begin + at);
        }
        if (bytes.size() <= searchStep)
            return;
    }
}

/// Only what is whole: nothing else says that it is a record of this lexicon.
void Salvage::takeFoundRecord(MemberBlock block, qint64 offset)
{
    const TextRecord record(std::move(block));
    const bool isText = std::strlen(record.text()) + 1 == record.size();
    if (isText && !_hasDescription && record.size() <= limits::descriptionBytes + 1) {
        _description = record.text();
        _hasReferences = _hasReferences || givenback::hasReferences(_description);
        _hasDescription = true;
        return;
    }
    if (record.count() == 0 || record.end() + 1 != record.size())
        return;
    lose("a record that the list does not name is found at byte " + std::to_string(offset) +
         " and kept, from " + inQuotes(record.word(0)) + " to " +
         inQuotes(record.word(static_cast<quint16>(record.count() - 1))));
    takeEntries(record, {});
}

} // namespace teskel
