// SPDX-License-Identifier: MIT
#include "lexicon/file/spotcheck.h"

#include "dictionary/qtdictionary.h"
#include "lexicon/file/articleof.h"
#include "lexicon/text/utf8.h"

#include <QFile>

#include <memory>

namespace teskel
{

bool SpotCheck::run(EntryFile& entries, std::string& error)
{
    QtDictionary dictionary;
    if (dictionary.open(QFile::decodeName(_path.c_str())) != 0) {
        error = "the file that was written is no readable dictionary";
        return false;
    }
    const auto all = entries.read();
    LexiconEntry entry;
    for (uint64_t number = 0; all->next(entry); ++number) {
        const bool isLast = number + 1 == entries.count();
        if ((number % interval == 0 || isLast) && !find(dictionary, entry, error))
            return false;
    }
    return true;
}

bool SpotCheck::find(QtDictionary& dictionary, const LexiconEntry& entry, std::string& error)
{
    ++_checkedWords;
    const std::unique_ptr<QtDictionary::QtDictionaryIterator> iterator(dictionary.createIterator());
    CursorPosition position = dictionary.findWord(entry.text, CursorPosition(), false);
    // Words that differ in case only are found together, in their order.
    for (; iterator->isValid(position); position = iterator->move(position, 1)) {
        const std::string word = dictionary.getWordAt(position);
        if (word == entry.headword()) {
            if (articleOf(dictionary, position) == entry.article())
                return true;
            error = "the article of \"" + utf8::fromLatin1(word) + "\" is not the one that went in";
            return false;
        }
        if (dictionary.wordCompare(word.c_str(), entry.text) != 0)
            break;
    }
    error = "the word \"" + utf8::fromLatin1(entry.headword()) +
            "\" is not found in the file that was written";
    return false;
}

} // namespace teskel
