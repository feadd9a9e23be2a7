// SPDX-License-Identifier: MIT
#include "lexicon/sources/translations.h"

#include "lexicon/text/utf8.h"
#include "script/letterreference.h"

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

constexpr std::pair<std::string_view, char> references[] = {
    {"&lt;", '<'}, {"&gt;", '>'}, {"&amp;", '&'}, {"&quot;", '"'}};

/// The text that rich text shows.
std::string shown(std::string_view markup)
{
    std::string text;
    while (!markup.empty()) {
        size_t length = 1;
        if (markup.front() == '<') {
            length = std::min(markup.find('>'), markup.size() - 1) + 1;
        } else if (const LetterReference letter = readLetterReference(markup); letter.length > 0) {
            text += utf8::encoded({&letter.character, 1});
            length = letter.length;
        } else {
            const auto* const known =
                std::find_if(std::begin(references), std::end(references),
                             [&](const auto& pair) { return markup.starts_with(pair.first); });
            const bool isKnown = known != std::end(references);
            text += isKnown ? known->second : markup.front();
            length = isKnown ? known->first.size() : 1;
        }
        markup.remove_prefix(length);
    }
    return text;
}

std::string_view trimmed(std::string_view text)
{
    const size_t begin = text.find_first_not_of(" \t\r");
    if (begin == std::string_view::npos)
        return {};
    return text.substr(begin, text.find_last_not_of(" \t\r") - begin + 1);
}

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
    for (const char c : line) {
        if (opening.find(c) != std::string_view::npos)
            ++depth;
        else if (closing.find(c) != std::string_view::npos)
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
        plain = shown(article);
        article = plain;
    }
    std::vector<std::string> translations;
    unsigned sense = 0;
    while (!article.empty()) {
        const size_t end = article.find('\n');
        const std::string_view line = withoutSenseNumber(trimmed(article.substr(0, end)), sense);
        article.remove_prefix(end == std::string_view::npos ? article.size() : end + 1);
        if (std::none_of(std::begin(otherLines), std::end(otherLines),
                         [&](std::string_view other) { return line.starts_with(other); }))
            gather(line, translations);
    }
    return translations;
}

} // namespace teskel
