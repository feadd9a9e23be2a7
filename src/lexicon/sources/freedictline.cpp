// SPDX-License-Identifier: MIT
#include "lexicon/sources/freedictline.h"

#include "lexicon/text/textlines.h"

#include <algorithm>

namespace teskel::freedict
{

namespace
{

constexpr auto npos = std::string_view::npos;

bool isClosing(char c)
{
    return c == ',' || c == ';' || c == ')' || c == ']';
}

bool isBlank(char c)
{
    return c == ' ' || c == '\t';
}

/// Single blanks, none in front of a closing sign, one behind a tag.
std::string tidySpacing(std::string_view text)
{
    std::string result;
    result.reserve(text.size() + 8);
    text = trimmed(text);
    const auto isOrdinary = [](char c) { return !isBlank(c) && !isClosing(c) && c != '>'; };
    for (auto next = text.begin(); next != text.end();) {
        const char c = *next++;
        const bool afterBlank = !result.empty() && result.back() == ' ';
        if (isBlank(c)) {
            if (!afterBlank)
                result += ' ';
            continue;
        }
        if (isClosing(c) && afterBlank)
            result.pop_back();
        const bool afterTag = result.size() > 1 && result.back() == '>' &&
                              result[result.size() - 2] != ' ' && result[result.size() - 2] != '-';
        if (afterTag && !isClosing(c) && c != '.' && c != ':' && c != '/' && c != '-' && c != '>')
            result += ' ';
        result += c;
        if (!isOrdinary(c))
            continue;
        const auto end = std::find_if_not(next, text.end(), isOrdinary); // nothing to change so far
        result.append(next, end);
        next = end;
    }
    return result;
}

/// Finds " /pronunciation/" from `from` on: a blank, then slashes around text that neither begins
/// nor ends with a blank, then the end, a blank or a closing sign.
size_t findPronunciation(std::string_view line, size_t from, size_t& end)
{
    for (size_t begin = line.find(" /", from); begin != npos; begin = line.find(" /", begin + 1)) {
        const size_t close = line.find('/', begin + 2);
        if (close == npos)
            return npos;
        const bool hasText = close > begin + 2 && line[begin + 2] != ' ' && line[close - 1] != ' ';
        const bool isEnded =
            close + 1 == line.size() || line[close + 1] == ' ' || isClosing(line[close + 1]);
        if (hasText && isEnded) {
            end = close + 1;
            return begin;
        }
    }
    return npos;
}

void eraseAll(std::string& text, std::string_view part)
{
    for (size_t place = text.find(part); place != npos; place = text.find(part, place))
        text.erase(place, part.size());
}

std::string withoutEmptyTags(std::string_view text)
{
    std::string result(text);
    eraseAll(result, "<>");
    return tidySpacing(result);
}

/// Takes the pronunciations out of what follows the word, and what they leave behind.
std::string grammarOf(std::string_view rest)
{
    std::string grammar;
    size_t from = 0;
    size_t end = 0;
    for (size_t begin = findPronunciation(rest, 0, end); begin != npos;
         begin = findPronunciation(rest, from, end)) {
        grammar += rest.substr(from, begin - from);
        from = end;
    }
    grammar += rest.substr(from);
    grammar = withoutEmptyTags(grammar);
    for (size_t place = grammar.find(",)"); place != npos; place = grammar.find(",)"))
        grammar.erase(place, 1);
    return grammar;
}

/// An abbreviation in the running text has its pronunciation behind it: "Professor Prof.,  /.../".
std::string withoutPronunciations(std::string_view line)
{
    constexpr std::string_view opening = ",  /";
    std::string result;
    size_t from = 0;
    for (size_t begin = line.find(opening); begin != npos; begin = line.find(opening, from)) {
        const size_t close = line.find('/', begin + opening.size());
        if (close == npos)
            break;
        result += line.substr(from, begin - from);
        from = close + 1;
    }
    return result += line.substr(from);
}

/// "{one}, {two}" as "one; two"; references may hold commas of their own.
std::string referenceList(std::string_view list)
{
    constexpr std::string_view between = "}, {";
    list.remove_prefix(1);
    list.remove_suffix(1);
    std::string result;
    for (size_t end = list.find(between); end != npos; end = list.find(between)) {
        (result += list.substr(0, end)) += "; ";
        list.remove_prefix(end + between.size());
    }
    return result += list;
}

} // namespace

FirstLine readFirstLine(std::string_view line)
{
    line = trimmed(line);
    size_t end = 0;
    const size_t begin = findPronunciation(line, 0, end);
    if (begin != npos)
        return {tidySpacing(line.substr(0, begin)), grammarOf(line.substr(end)),
                withoutEmptyTags(line.substr(begin))};
    // Without a pronunciation the tags at the end tell where the word ends.
    std::string_view word = line;
    while (word.ends_with('>')) {
        const size_t tag = word.rfind(" <");
        if (tag == npos || tag == 0)
            break;
        word = trimmed(word.substr(0, tag));
    }
    const std::string grammar = tidySpacing(line.substr(word.size()));
    return {tidySpacing(word), grammar, grammar};
}

std::vector<std::string> forms(std::string_view grammar)
{
    std::vector<std::string> result;
    std::string form;
    const auto finish = [&] {
        if (const std::string_view text = trimmed(form); !text.empty())
            result.emplace_back(text);
        form.clear();
    };
    const size_t last = grammar.rfind(')');
    if (!grammar.starts_with('(') || last == npos)
        return result;
    grammar = grammar.substr(1, last - 1);
    char until = '\0'; // inside a note or tag: the sign that ends it
    for (size_t i = 0; i < grammar.size(); ++i) {
        const char c = grammar[i];
        if (until != '\0') {
            if (c == until)
                until = '\0';
        } else if (c == '[' && grammar.find(']', i) != npos) {
            until = ']';
        } else if (c == '<' && grammar.find('>', i) != npos) {
            until = '>';
        } else if (c == ',') {
            finish();
        } else if (grammar.substr(i, 3) == ") (") {
            finish();
            i += 2;
        } else {
            form += c;
        }
    }
    finish();
    return result;
}

std::vector<TextSpan> pronunciations(std::string_view spoken)
{
    std::vector<TextSpan> spans;
    std::string line(1, ' '); // each stands behind a blank
    line += spoken;
    size_t end = 0;
    for (size_t begin = findPronunciation(line, 0, end); begin != npos;
         begin = findPronunciation(line, end, end))
        spans.push_back({begin, end - begin - 1});
    return spans;
}

std::string tidyLine(std::string_view line, bool keepsPronunciations)
{
    line = trimmed(line);
    for (const std::string_view label : {"see:", "Synonyms:", "Synonym:"}) {
        if (!line.starts_with(label))
            continue;
        const std::string_view list = trimmed(line.substr(label.size()));
        if (list.size() >= 2 && list.front() == '{' && list.back() == '}')
            return tidySpacing(std::string(label) + ' ' + referenceList(list));
    }
    return tidySpacing(keepsPronunciations ? std::string(line) : withoutPronunciations(line));
}

} // namespace teskel::freedict
