// SPDX-License-Identifier: MIT
// The words of QtDictionary: comparison, search and access by position.
#include "dictionary/qtdictionary.h"

#include "base/assertion.h"
#include "dictionary/latin1fold.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>

namespace
{
constexpr auto unit = "qtdictionary.cpp";

// A missing text compares as the empty one.
const char* orEmpty(const char* text)
{
    return TESKEL_ASSERT(text != nullptr, "buffer!=NULL", unit) ? text : "";
}
} // namespace

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
    if (!TESKEL_ASSERT(isOpen(), "isOpen()", unit) || !word || !loadIndex())
        return CursorPosition::invalid();
    const std::size_t length = prefix ? std::strlen(word) : teskel::wholeText;
    const unsigned short recordCount = getWordRecordCount();
    for (std::size_t i = _index.recordFor(word, length); i < recordCount; ++i) {
        const auto recordIndex = static_cast<unsigned short>(i);
        const teskel::TextRecord* record = cachedWordRecord(recordIndex);
        if (!record || record->count() == 0)
            break;
        const quint16 entry = record->firstNotBelow(word, length);
        if (entry == record->count())
            continue;
        const bool isFound = teskel::foldedCompare(record->word(entry), word, length) == 0;
        return isFound ? CursorPosition::at(recordIndex, entry) : CursorPosition::invalid();
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
    return hasWord ? cachedWordRecord(recordNumber)->word(wordNumber) : nullptr;
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
