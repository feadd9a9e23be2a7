// SPDX-License-Identifier: MIT
#include "lexicon/sources/lexiconsource.h"

#include "lexicon/sources/freedictentry.h"
#include "lexicon/sources/freedictline.h"
#include "lexicon/sources/translations.h"
#include "lexicon/text/plainarticle.h"
#include "lexicon/text/textlines.h"

#include <algorithm>

namespace teskel
{

void LexiconSource::add(EntryIntake& intake, std::string_view headword, std::string_view article,
                        Latin1Converter::Text kind, uint32_t number, std::string_view where)
{
    const uint32_t order = _orderBefore + number;
    _lastOrder = std::max(_lastOrder, order);
    _entryBytes += headword.size() + article.size();
    if (!_isReversed) {
        intake.add(headword, article, kind, order, where);
        return;
    }
    for (const std::string& translation : translationsIn(article, kind))
        intake.add(translation, headword, Latin1Converter::Text::PlainArticle, order, where);
}

void LexiconSource::addLaidOut(EntryIntake& intake, std::string_view key, Written written,
                               std::string_view text, uint32_t number, std::string_view where)
{
    TextOptions options = intake.options();
    if (_isReversed) {
        // A form of a word has the article of the word, which is an entry of its own.
        const auto first = freedict::readFirstLine(firstLine(text));
        if (FreeDictEntry::normalized(first.word) != FreeDictEntry::normalized(key))
            return;
        options.pronunciations = false;
    }
    const FreeDictEntry entry = FreeDictEntry::parse(key, text, options);
    const std::string_view headword = written == Written::AsKey ? key : entry.headword;
    if (entry.pronunciations.empty())
        add(intake, headword, entry.article, Latin1Converter::Text::PlainArticle, number, where);
    else
        add(intake, headword, richText(entry.article, entry.pronunciations),
            Latin1Converter::Text::MarkupArticle, number, where);
}

bool LexiconSource::isInMeasure(std::string_view where, std::string& error) const
{
    constexpr uint64_t alwaysFine = uint64_t{64} << 20;
    constexpr uint64_t mostTimes = 100;
    if (_entryBytes <= alwaysFine || _entryBytes / mostTimes <= _readBytes)
        return true;
    error = std::string(where) +
            ": the entries up to here are 64 MiB, more than a hundred times as much as they are "
            "made of: too many words share long articles";
    return false;
}

std::string placeInFile(std::string_view name, uint64_t line)
{
    return std::string(name) + ":" + std::to_string(line);
}

} // namespace teskel
