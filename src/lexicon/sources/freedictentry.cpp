// SPDX-License-Identifier: MIT
#include "lexicon/sources/freedictentry.h"

#include "lexicon/sources/freedictline.h"
#include "lexicon/text/utf8.h"

#include <QChar>

#include <vector>

namespace teskel
{

namespace
{

std::string_view takeLine(std::string_view& text)
{
    const size_t end = text.find('\n');
    const std::string_view line = text.substr(0, end);
    text.remove_prefix(end == std::string_view::npos ? text.size() : end + 1);
    return line;
}

/// The form among those in parentheses behind the word that the key stands for; empty when none is.
std::string formForKey(std::string_view grammar, std::string_view normalizedKey)
{
    for (const std::string& form : freedict::forms(grammar)) {
        if (FreeDictEntry::normalized(form) == normalizedKey)
            return form;
    }
    return {};
}

std::string joined(std::string_view a, std::string_view b)
{
    std::string result(a);
    if (!a.empty() && !b.empty())
        result += ' ';
    return result += b;
}

} // namespace

std::string FreeDictEntry::normalized(std::string_view text)
{
    std::u32string result;
    bool blankPending = false;
    for (const char32_t character : utf8::decoded(text)) {
        if (QChar::isSpace(character)) {
            blankPending = !result.empty();
        } else if (QChar::isLetter(character) || QChar::isDigit(character)) {
            if (blankPending)
                result += U' ';
            blankPending = false;
            result += QChar::toLower(character);
        }
    }
    return utf8::encoded(result);
}

FreeDictEntry FreeDictEntry::parse(std::string_view key, std::string_view text)
{
    FreeDictEntry entry;
    const freedict::FirstLine first = freedict::readFirstLine(takeLine(text));
    const std::string wanted = normalized(key);

    std::string lead; // what the first line tells besides the headword
    bool leadJoins = false;
    if (normalized(first.word) == wanted) {
        entry.headword = first.word;
        lead = first.grammar;
        leadJoins = true;
    } else {
        entry.headword = formForKey(first.grammar, wanted);
        if (entry.headword.empty())
            entry.headword = wanted.empty() ? first.word : std::string(key);
        lead = joined(first.word, first.grammar);
    }

    std::vector<std::string> lines;
    while (!text.empty()) {
        std::string line = freedict::tidyLine(takeLine(text));
        if (!line.empty())
            lines.push_back(std::move(line));
    }
    if (lines.empty() && lead.empty())
        lead = first.word; // never an article without a text
    if (leadJoins && !lines.empty()) {
        entry.article = joined(lead, lines.front());
        lines.erase(lines.begin());
    } else {
        entry.article = lead;
    }
    for (const std::string& line : lines) {
        if (!entry.article.empty())
            entry.article += '\n';
        entry.article += line;
    }
    return entry;
}

} // namespace teskel
