// SPDX-License-Identifier: MIT
#include "lexicon/file/lexiconreader.h"

#include "dictionary/latin1fold.h"
#include "lexicon/entries/lexiconentry.h"
#include "lexicon/file/articleof.h"
#include "lexicon/file/lexiconfile.h"
#include "lexicon/text/givenback.h"
#include "lexicon/text/latin1converter.h"
#include "lexicon/text/utf8.h"

#include <QFile>

#include <array>

namespace teskel
{

namespace
{

constexpr unsigned short descriptionRecord = 2;

std::string recordThatCannotBeUnpacked(unsigned record)
{
    return "record " + std::to_string(record) + " cannot be unpacked";
}

/// A word as a build would have written it.
std::string headwordOf(std::string_view word, LatinForm form = LatinForm::LetterReferences)
{
    return Latin1Converter(form).converted(word, Latin1Converter::Text::Headword);
}

} // namespace

LexiconReader::Status LexiconReader::open(const std::string& path, std::string& error)
{
    QFile file;
    if (!openLexiconFile(file, path, error))
        return Status::Unreadable;
    file.close(); // the dictionary may get the last descriptor that there is
    if (_dictionary.open(file.fileName()) != 0) {
        error = path + " is no lexicon";
        return Status::Invalid;
    }
    return Status::Ok;
}

std::string LexiconReader::name()
{
    std::array<char, 512> buffer{};
    _dictionary.getName(buffer.data(), static_cast<int>(buffer.size()));
    return utf8::fromLatin1(buffer.data());
}

std::string LexiconReader::description()
{
    const char* text = _dictionary.getDecompressedRecord(descriptionRecord);
    return text ? givenback::description(text) : std::string();
}

LexiconReader::Status LexiconReader::checkDescription(std::string& error)
{
    if (_dictionary.getDecompressedRecord(descriptionRecord))
        return Status::Ok;
    error = recordThatCannotBeUnpacked(descriptionRecord);
    return Status::Invalid;
}

bool LexiconReader::describesInReferences()
{
    const char* text = _dictionary.getDecompressedRecord(descriptionRecord);
    return text && givenback::hasReferences(text);
}

unsigned LexiconReader::recordBefore(const std::string& latin1)
{
    // The last record whose first headword compares below the word.
    unsigned low = 0;
    unsigned high = recordCount();
    while (high - low > 1) {
        const unsigned middle = (low + high) / 2;
        const char* first = _dictionary.getWordRecord(static_cast<unsigned short>(middle));
        if (first && foldedCompare(first, latin1.c_str()) < 0)
            low = middle;
        else
            high = middle;
    }
    return low;
}

LexiconReader::Status LexiconReader::visitFrom(std::string_view from, const Visitor& visitor,
                                               std::string& error)
{
    const std::string start = headwordOf(from);
    const unsigned records = recordCount();
    bool goesOn = true;
    const auto visit = [&](std::string_view headword, std::string_view article) {
        goesOn = foldedCompare(headword.data(), start.c_str()) < 0 || visitor(headword, article);
        return goesOn;
    };
    Status status = Status::Ok;
    for (unsigned record = start.empty() ? 0 : recordBefore(start);
         record < records && goesOn && status == Status::Ok; ++record)
        status = visitRecord(record, visit, error);
    return status;
}

LexiconReader::Status LexiconReader::visitRecord(unsigned record, const Visitor& visitor,
                                                 std::string& error)
{
    const TextRecord* text = _dictionary.getTextRecord(static_cast<unsigned short>(record));
    if (!text) {
        error = recordThatCannotBeUnpacked(record + limits::firstWordRecord);
        return Status::Invalid;
    }
    for (quint16 entry = 0; entry < text->count(); ++entry) {
        const std::string_view headword = text->word(entry);
        if (!visitor(headword, headword.data() + headword.size() + 1))
            break;
    }
    return Status::Ok;
}

/// False when there is none.
bool LexiconReader::visitEqual(const std::string& latin1, bool prefix, const Visitor& visitor)
{
    const std::unique_ptr<QtDictionary::QtDictionaryIterator> iterator(
        _dictionary.createIterator());
    CursorPosition position = _dictionary.findWord(latin1.c_str(), CursorPosition(), prefix);
    const bool isFound = iterator->isValid(position);
    for (; iterator->isValid(position); position = iterator->move(position, 1)) {
        const std::string headword = _dictionary.getWordAt(position);
        if (_dictionary.wordCompare(headword.c_str(), latin1.c_str(), prefix) != 0 ||
            !visitor(headword, articleOf(_dictionary, position)))
            break;
    }
    return isFound;
}

LexiconReader::Status LexiconReader::visitMatches(std::string_view word, bool prefix,
                                                  const Visitor& visitor, std::string& error)
{
    (void)_dictionary.takeMissedRecord();
    // A lexicon does not tell its form.
    const bool isFound = visitEqual(headwordOf(word), prefix, visitor) ||
                         visitEqual(headwordOf(word, LatinForm::Plain), prefix, visitor);
    const int missed = _dictionary.takeMissedRecord();
    // Equal headwords stand in one record.
    if (missed < 0 || (isFound && !prefix))
        return Status::Ok;
    error = "record " + std::to_string(missed) + " cannot be read";
    return Status::Unreadable;
}

} // namespace teskel
