// SPDX-License-Identifier: MIT
#include "lexicon/sources/freedictentry.h"

#include "lexicon/sources/freedictline.h"
#include "lexicon/text/paragraphs.h"
#include "lexicon/text/senseruns.h"
#include "lexicon/text/textlines.h"
#include "lexicon/text/utf8.h"

#include <QChar>

#include <vector>

namespace teskel
{

namespace
{

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

/// Where pronunciations stand in a lead that ends with what follows the word.
std::vector<TextSpan> pronunciationsIn(std::string_view lead, std::string_view behindWord,
                                       const TextOptions& options)
{
    std::vector<TextSpan> spans;
    if (options.keepsPronunciations())
        spans = freedict::pronunciations(behindWord);
    for (TextSpan& span : spans)
        span.begin += lead.size() - behindWord.size();
    return spans;
}

bool beginsSense(std::string_view line)
{
    return senseruns::readCandidate(line).end > 0;
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

FreeDictEntry FreeDictEntry::parse(std::string_view key, std::string_view text,
                                   const TextOptions& options)
{
    // The plain form knows neither senses nor paragraphs of the source.
    const bool isPlain = options.form == LatinForm::Plain;
    const std::string unwrapped = isPlain ? std::string(text) : joinedLines(text);
    std::string_view rest = unwrapped;
    FreeDictEntry entry;
    const freedict::FirstLine first = freedict::readFirstLine(takeLine(rest));
    const std::string& behindWord = options.keepsPronunciations() ? first.spoken : first.grammar;
    const std::string wanted = normalized(key);

    std::string lead; // what the first line tells besides the headword
    bool leadJoins = false;
    if (normalized(first.word) == wanted) {
        entry.headword = first.word;
        lead = behindWord;
        leadJoins = true;
    } else {
        entry.headword = formForKey(first.grammar, wanted);
        if (entry.headword.empty())
            entry.headword = wanted.empty() ? first.word : std::string(key);
        lead = joined(first.word, behindWord);
    }
    entry.pronunciations = pronunciationsIn(lead, behindWord, options);

    std::vector<std::string> lines;
    while (!rest.empty()) {
        std::string line = freedict::tidyLine(takeLine(rest), options.keepsPronunciations());
        if (!line.empty())
            lines.push_back(std::move(line));
    }
    if (lines.empty() && lead.empty())
        lead = first.word; // never an article without a text
    if (leadJoins && !lines.empty() && (isPlain || !beginsSense(lines.front()))) {
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
