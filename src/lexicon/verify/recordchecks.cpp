// SPDX-License-Identifier: MIT
#include "lexicon/verify/recordchecks.h"

#include "dictionary/latin1fold.h"
#include "lexicon/text/utf8.h"

namespace teskel::checks
{

namespace
{

std::string inQuotes(const std::string& latin1)
{
    return '"' + utf8::fromLatin1(latin1) + '"';
}

} // namespace

bool unpack(VerifiedFile& file, WordRecord& record)
{
    record.text = file.unpacked(record.number);
    return record.text.has_value();
}

bool layout(VerifiedFile& file, WordRecord& record)
{
    const TextRecord& text = *record.text;
    const std::string name = recordName(record.number);
    if (text.count() == 0) {
        file.report(name + " holds no entry");
        return false;
    }
    const bool isCut = text.end() > text.size();
    const int wholeEntries = text.count() - (isCut ? 1 : 0);
    for (int entry = 0; entry < wholeEntries; ++entry) {
        const std::string headword = text.word(static_cast<quint16>(entry));
        if (headword.size() > limits::headwordBytes)
            file.report(
                name + ": a headword has " + std::to_string(headword.size()) +
                " bytes, the reader shows none above 511: " + inQuotes(headword.substr(0, 40)));
    }
    if (isCut)
        file.report(name + " ends within an entry");
    else if (text.end() == text.size())
        file.report(name + " is not ended by an empty headword");
    else if (text.end() + 1 != text.size())
        file.report(name + " goes on behind the empty headword that ends it");
    return text.end() < text.size();
}

bool keys(VerifiedFile& file, WordRecord& record)
{
    const unsigned wordRecord = record.number - limits::firstWordRecord;
    if (wordRecord >= file.index().count())
        return false; // reported with the index
    const char* key = file.index().key(wordRecord);
    const char* firstHeadword = record.text->word(0);
    const std::string subject = "the key " + inQuotes(key) + " of " + recordName(record.number);
    bool holds = true;
    if (foldedCompare(key, firstHeadword) > 0) {
        file.report(subject + " sorts after its first headword " + inQuotes(firstHeadword));
        holds = false;
    }
    if (record.headwordBefore && foldedCompare(record.headwordBefore->c_str(), key) >= 0) {
        file.report(subject + " does not sort after " + inQuotes(*record.headwordBefore) +
                    " in the record before it");
        holds = false;
    }
    return holds;
}

bool order(VerifiedFile& file, WordRecord& record)
{
    const TextRecord& text = *record.text;
    const char* before = record.headwordBefore ? record.headwordBefore->c_str() : nullptr;
    bool holds = true;
    for (quint16 entry = 0; entry < text.count(); ++entry) {
        const char* headword = text.word(entry);
        if (before && foldedCompare(before, headword) > 0) {
            file.report(recordName(record.number) + ": " + inQuotes(headword) + " stands behind " +
                        inQuotes(before));
            holds = false;
        }
        before = headword;
    }
    return holds;
}

} // namespace teskel::checks
