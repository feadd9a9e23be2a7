// SPDX-License-Identifier: MIT
#include "lexicon/text/sensenumbers.h"

#include <algorithm>
#include <array>
#include <cctype>

namespace teskel::sensenumbers
{

namespace
{

constexpr std::string_view separator = "<i></i>";

bool isSenseDigit(char c)
{
    return c >= '1' && c <= '9';
}

bool isNumberAt(std::string_view text, size_t position)
{
    return position + 1 < text.size() && isSenseDigit(text[position]) && text[position + 1] == '.';
}

/// Length of the tag or comment at `position`, 0 when there is none.
size_t tagLength(std::string_view text, size_t position)
{
    if (text[position] != '<' || position + 1 >= text.size())
        return 0;
    const char next = text[position + 1];
    if (!std::isalpha(static_cast<unsigned char>(next)) && next != '/' && next != '!')
        return 0;
    const size_t end = text.find('>', position);
    return end == std::string_view::npos ? 0 : end + 1 - position;
}

/// Whether what follows the tag stands on a new line.
bool breaksLine(std::string_view tag)
{
    static constexpr std::array<std::string_view, 11> names = {"br", "p",  "li", "div", "dd", "dt",
                                                               "tr", "td", "hr", "ol",  "ul"};
    std::string name;
    for (const char c : tag.substr(1)) {
        if (!std::isalpha(static_cast<unsigned char>(c)))
            break;
        name += static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
    }
    return std::find(names.begin(), names.end(), name) != names.end();
}

/// Whether the numbers at line beginnings are 1, 2 and so on, at least two of them.
bool isSequence(std::string_view article)
{
    unsigned expected = 1;
    for (size_t line = 0; line < article.size();) {
        const size_t start = std::min(article.find_first_not_of(" \t", line), article.size());
        if (isNumberAt(article, start)) {
            if (static_cast<unsigned>(article[start] - '0') != expected++)
                return false;
        }
        const size_t end = article.find('\n', line);
        line = end == std::string_view::npos ? article.size() : end + 1;
    }
    return expected > 2;
}

bool hasNumber(std::string_view article)
{
    for (size_t dot = article.find('.'); dot != std::string_view::npos;
         dot = article.find('.', dot + 1)) {
        if (dot > 0 && isSenseDigit(article[dot - 1]))
            return true;
    }
    return false;
}

} // namespace

void protect(std::string& article, LineStart lineStart)
{
    if (!hasNumber(article))
        return;
    const bool keepsLineStarts = lineStart == LineStart::Trusted || isSequence(article);
    std::string result;
    result.reserve(article.size() + 4 * separator.size());
    bool atLineStart = true;
    for (size_t position = 0; position < article.size();) {
        if (const size_t length = tagLength(article, position); length > 0) {
            const std::string_view tag = std::string_view(article).substr(position, length);
            atLineStart = atLineStart || breaksLine(tag);
            result += tag;
            position += length;
            continue;
        }
        const char c = article[position];
        result += c;
        if (isNumberAt(article, position) && !(atLineStart && keepsLineStarts))
            result += separator;
        if (c == '\n')
            atLineStart = true;
        else if (c != ' ' && c != '\t')
            atLineStart = false;
        ++position;
    }
    article = std::move(result);
}

bool beginsWithNumber(std::string_view article)
{
    size_t position = 0;
    while (position < article.size()) {
        const char c = article[position];
        if (c == ' ' || c == '\t' || c == '\n')
            ++position;
        else if (const size_t length = tagLength(article, position); length > 0)
            position += length;
        else
            break;
    }
    return isNumberAt(article, position);
}

} // namespace teskel::sensenumbers
