// SPDX-License-Identifier: MIT
#include "lexicon/file/lexiconverifier.h"

#include "dictionary/latin1fold.h"
#include "lexicon/entries/lexiconentry.h"
#include "lexicon/file/packedrecord.h"
#include "lexicon/text/utf8.h"

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

std::string inQuotes(const std::string& latin1)
{
    return '"' + utf8::fromLatin1(latin1) + '"';
}

} // namespace

bool LexiconVerifier::run(const std::string& path, std::string& error)
{
    if (!_file.open(path, error))
        return false;
    if (!checkContainer() || !checkCreator() || !checkRecords() || !checkOffsets())
        return true;
    checkIndex();
    checkDescription();
    for (unsigned number = limits::firstWordRecord; number < _file.recordCount(); ++number)
        checkWordRecord(number);
    return true;
}

void LexiconVerifier::report(const std::string& check, const std::string& sentence)
{
    _findings.push_back(check + ": " + sentence);
}

bool LexiconVerifier::checkContainer()
{
    if (!_file.hasHeader())
        report("container", "the file ends within its header of 78 bytes");
    else if (!_file.hasRecordList())
        report("container", "the file ends within its list of " +
                                std::to_string(_file.recordCount()) + " records");
    return _findings.empty();
}

bool LexiconVerifier::checkCreator()
{
    if (_file.creator() != "TSKL")
        report("creator", "the creator is not \"TSKL\"");
    return _findings.empty();
}

bool LexiconVerifier::checkRecords()
{
    if (_file.recordCount() < limits::firstWordRecord) {
        report("records", "there are " + std::to_string(_file.recordCount()) +
                              " records, a dictionary has at least 5");
        return false;
    }
    _wordRecords = _file.recordCount() - limits::firstWordRecord;
    return true;
}

bool LexiconVerifier::checkOffsets()
{
    uint64_t earliest = PalmFile::headerBytes + _file.recordCount() * PalmFile::listEntryBytes;
    for (unsigned i = 0; i < _file.recordCount(); ++i) {
        const uint64_t offset = _file.offsets()[i];
        if (offset < earliest)
            report("offsets", recordName(i) + " begins at " + std::to_string(offset) +
                                  ", before the end of what stands in front of it");
        else if (offset > _file.size())
            report("offsets", recordName(i) + " begins at " + std::to_string(offset) +
                                  ", the file ends at " + std::to_string(_file.size()));
        if (!_findings.empty())
            return false;
        earliest = offset;
    }
    for (unsigned i = 0; i < _file.recordCount(); ++i) {
        const uint64_t size = _file.endOf(i) - _file.offsets()[i];
        if (size == 0 && isRead(i))
            report("offsets", recordName(i) + " has no bytes");
        else if (size > limits::packedBytes)
            report("offsets", recordName(i) + " has " + std::to_string(size) +
                                  " bytes, the reader takes none above 67,108,864");
    }
    return _findings.empty();
}

void LexiconVerifier::checkIndex()
{
    const std::string index = _file.record(indexRecord);
    if (index.front() == '#')
        report("index", "the first key begins with \"#\", which marks a topic dictionary");
    size_t position = 0;
    while (position < index.size() && index[position] != '\0') {
        const size_t end = index.find('\0', position);
        if (end == std::string::npos)
            break;
        _keys.push_back(index.substr(position, end - position));
        position = end + 1;
    }
    if (position >= index.size() || index[position] != '\0')
        report("index", "the list of keys is not ended by an empty key");
    if (_keys.size() != _wordRecords)
        report("index", "there are " + std::to_string(_keys.size()) + " keys for " +
                            std::to_string(_wordRecords) + " word records");
}

void LexiconVerifier::checkDescription()
{
    const std::string bytes = _file.record(descriptionRecord);
    std::string text;
    std::string error;
    if (!PackedRecord(bytes).unpack(text, error)) {
        report("description", recordName(descriptionRecord) + " does not unpack: " + error);
        return;
    }
    const size_t length = text.find('\0');
    if (length == std::string::npos)
        report("description", "the description is not ended by a NUL");
    else if (length > limits::descriptionBytes)
        report("description", "the description has " + std::to_string(length) +
                                  " bytes, the reader shows none above 511");
}

void LexiconVerifier::checkWordRecord(unsigned number)
{
    const std::string bytes = _file.record(number);
    std::string text;
    std::string error;
    if (!PackedRecord(bytes).unpack(text, error)) {
        report("unpack", recordName(number) + " does not unpack: " + error);
        return;
    }
    if (!checkLayout(number, text))
        return;
    const char* headword = text.c_str();
    checkKey(number, headword);
    while (*headword != '\0') {
        checkOrder(number, headword);
        ++_headwords;
        const char* article = headword + std::char_traits<char>::length(headword) + 1;
        headword = article + std::char_traits<char>::length(article) + 1;
    }
}

bool LexiconVerifier::checkLayout(unsigned number, const std::string& text)
{
    if (text.empty() || text.front() == '\0') {
        report("layout", recordName(number) + " holds no entry");
        return false;
    }
    size_t position = 0;
    while (position < text.size() && text[position] != '\0') {
        const size_t headwordEnd = text.find('\0', position);
        const size_t articleEnd =
            headwordEnd == std::string::npos ? headwordEnd : text.find('\0', headwordEnd + 1);
        if (articleEnd == std::string::npos) {
            report("layout", recordName(number) + " ends within an entry");
            return false;
        }
        if (headwordEnd - position > limits::headwordBytes)
            report("layout", recordName(number) + ": a headword has " +
                                 std::to_string(headwordEnd - position) +
                                 " bytes, the reader shows none above 511: " +
                                 inQuotes(text.substr(position, 40)));
        position = articleEnd + 1;
    }
    if (position >= text.size()) {
        report("layout", recordName(number) + " is not ended by an empty headword");
        return false;
    }
    if (position + 1 != text.size())
        report("layout", recordName(number) + " goes on behind the empty headword that ends it");
    return true;
}

void LexiconVerifier::checkOrder(unsigned number, const char* headword)
{
    if (_hasLastHeadword && foldedCompare(_lastHeadword.c_str(), headword) > 0)
        report("order", recordName(number) + ": " + inQuotes(headword) + " stands behind " +
                            inQuotes(_lastHeadword));
    _lastHeadword = headword;
    _hasLastHeadword = true;
}

void LexiconVerifier::checkKey(unsigned number, const std::string& firstHeadword)
{
    const unsigned wordRecord = number - limits::firstWordRecord;
    if (wordRecord >= _keys.size())
        return; // reported with the index
    const std::string& key = _keys[wordRecord];
    if (foldedCompare(key.c_str(), firstHeadword.c_str()) > 0)
        report("keys", "the key " + inQuotes(key) + " of " + recordName(number) +
                           " sorts after its first headword " + inQuotes(firstHeadword));
    if (_hasLastHeadword && foldedCompare(_lastHeadword.c_str(), key.c_str()) >= 0)
        report("keys", "the key " + inQuotes(key) + " of " + recordName(number) +
                           " does not sort after " + inQuotes(_lastHeadword) +
                           " in the record before it");
}

} // namespace teskel
