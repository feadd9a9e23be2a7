// SPDX-License-Identifier: MIT
#include "lexicon/sources/lexiconsource.h"

#include "lexicon/sources/freedictentry.h"
#include "lexicon/text/plainarticle.h"

#include <algorithm>

namespace teskel
{

void LexiconSource::add(EntryIntake& intake, std::string_view headword, std::string_view article,
                        Latin1Converter::Text kind, uint32_t number, std::string_view where)
{
    const uint32_t order = _orderBefore + number;
    _lastOrder = std::max(_lastOrder, order);
    intake.add(headword, article, kind, order, where);
}

void LexiconSource::addLaidOut(EntryIntake& intake, std::string_view key, Written written,
                               std::string_view text, uint32_t number, std::string_view where)
{
    const FreeDictEntry entry = FreeDictEntry::parse(key, text, intake.options());
    const std::string_view headword = written == Written::AsKey ? key : entry.headword;
    if (entry.pronunciations.empty())
        add(intake, headword, entry.article, Latin1Converter::Text::PlainArticle, number, where);
    else
        add(intake, headword, richText(entry.article, entry.pronunciations),
            Latin1Converter::Text::MarkupArticle, number, where);
}

std::string placeInFile(std::string_view name, uint64_t line)
{
    return std::string(name) + ":" + std::to_string(line);
}

} // namespace teskel
