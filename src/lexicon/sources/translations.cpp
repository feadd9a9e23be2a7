// SPDX-License-Identifier: MIT
#include "lexicon/sources/translations.h"

#include "lexicon/text/plaintext.h"
#include "lexicon/text/textlines.h"
#include "lexicon/text/utf8.h"

#include <QChar>

#include <algorithm>

namespace teskel
{

namespace
{

constexpr size_t mostWords = 6;

/// Lines that tell something else than translations.
constexpr std::string_view otherLines[] = {
    "\"", "see:", "Synonym:", "Synonyms:", "Antonym:", "Antonyms:", "Note:"};

/// Senses are numbered from 1 on without a gap; any other number belongs to its line. `sense` is
/// the last one.
std::string_view withoutSenseNumber(std::string_view line, unsigned& sense)
{
    const std::string next = std::to_string(sense + 1) + ".";
    if (!line.starts_with(next))
        return line;
    ++sense;
    return trimmed(line.substr(next.size()));
}

bool isTranslation(std::string_view text)
{
    const std::u32string characters = utf8::decoded(text);
    return std::any_of(characters.begin(), characters.end(),
                       [](char32_t character) { return QChar::isLetter(character); }) &&
           std::count(text.begin(), text.end(), ' ') < static_cast<long>(mostWords);
}

/// Whether the sign at a place of the line compares what stands around it, as in "x < y", instead
/// of being a bracket.
bool compares(std::string_view line, size_t place)
{
    const std::string_view around = line.substr(place > 0 ? place - 1 : 0, 3);
    return around == " < " || around == " > ";
}

/// Takes one line apart.
void gather(std::string_view line, std::vector<std::string>& translations)
{
    constexpr std::string_view opening = "([{<";
    constexpr std::string_view closing = ")]}>";
    std::string piece;
    size_t depth = 0;
    const auto finish = [&] {
        if (const std::string_view text = trimmed(piece); isTranslation(text))
            translations.emplace_back(text);
        piece.clear();
    };
    for (size_t i = 0; i < line.size(); ++i) {
        const char c = line[i];
        const bool isBracket = !compares(line, i);
        if (isBracket && opening.find(c) != std::string_view::npos)
            ++depth;
        else if (isBracket && closing.find(c) != std::string_view::npos)
            depth -= depth > 0 ? 1 : 0;
        else if (depth == 0 && (c == ',' || c == ';'))
            finish();
        else if (depth == 0 && (c != ' ' || !piece.ends_with(' ')))
            piece += c;
    }
    finish();
}

} // namespace

std::vector<std::string> translationsIn(std::string_view article, Latin1Converter::Text kind)
{
    std::string plain;
    if (kind == Latin1Converter::Text::MarkupArticle) {
        plain = plainText(article);
        article = plain;
    }
    std::vector<std::string> translations;
    unsigned sense = 0;
    while (!article.empty()) {
        const std::string_view line = withoutSenseNumber(trimmed(takeLine(article)), sense);
        if (std::none_of(std::begin(otherLines), std::end(otherLines),
                         [&](std::string_view other) { return line.starts_with(other); }))
            gather(line, translations);
    }
    return translations;
}

} // namespace teskel
