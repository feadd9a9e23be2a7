// SPDX-License-Identifier: MIT
#include "lexicon/text/sensenumbers.h"

#include "lexicon/text/articlewalk.h"
#include "lexicon/text/textlines.h"
#include "script/letterreference.h"

#include <algorithm>

namespace teskel::sensenumbers
{

namespace
{

constexpr std::string_view highOpening = "<b><font color=\"#0000FF\">";
constexpr std::string_view highClosing = "</font></b>";

bool isDigit(char c)
{
    return isSenseDigit(static_cast<unsigned char>(c));
}

/// Where the next digit is, from `from` on; the text's size when there is none.
size_t findDigit(std::string_view text, size_t from)
{
    const auto begin = text.begin() + static_cast<std::ptrdiff_t>(from);
    return static_cast<size_t>(std::find_if(begin, text.end(), isDigit) - text.begin());
}

bool isNumberAt(std::string_view text, size_t position)
{
    return position + 1 < text.size() && isDigit(text[position]) && text[position + 1] == '.';
}

/// The number of two digits and a full stop that a text begins with, if no digit follows; else 0.
unsigned highNumber(std::string_view text)
{
    const auto isAnyDigit = [text](size_t at) { return isDigit(text[at]) || text[at] == '0'; };
    if (text.size() < 3 || !isDigit(text[0]) || !isAnyDigit(1) || text[2] != '.' ||
        (text.size() > 3 && isAnyDigit(3)))
        return 0;
    return static_cast<unsigned>(text[0] - '0') * 10 + static_cast<unsigned>(text[1] - '0');
}

/// Whether the numbers at line beginnings are 1, 2 and so on, at least two of them.
bool isSequence(std::string_view article)
{
    unsigned expected = 1;
    while (!article.empty()) {
        const std::string_view line = takeLine(article);
        const size_t start = std::min(line.find_first_not_of(" \t"), line.size());
        if (isNumberAt(line, start) && static_cast<unsigned>(line[start] - '0') != expected++)
            return false;
    }
    return expected > 2;
}

} // namespace

std::string written(unsigned number)
{
    std::string text = std::to_string(number) + '.';
    if (number > highest)
        text = std::string(highOpening) + text + std::string(highClosing);
    return text;
}

void referDigits(std::string& article)
{
    if (std::none_of(article.begin(), article.end(), isDigit))
        return;
    std::string result;
    result.reserve(article.size() + 64);
    const auto refer = [&result](std::string_view text) {
        for (const char c : text) {
            if (isDigit(c))
                result += letterReference(static_cast<unsigned char>(c));
            else
                result += c;
        }
    };
    unsigned last = 0; // sense number
    size_t done = 0;   // bytes of the article
    ArticleWalk walk(article);
    ArticleWalk::Step step;
    for (size_t place = findDigit(article, 0); place < article.size();
         place = findDigit(article, done)) {
        result.append(article, done, place - done);
        done = place + 1;
        const std::string_view rest = std::string_view(article).substr(place);
        const bool isNumber = isNumberAt(rest, 0);
        const bool isHigh = last >= highest && highNumber(rest) == last + 1;
        while ((isNumber || isHigh) && step.end <= place && walk.next(step)) {
        }
        if ((!isNumber && !isHigh) || step.kind != ArticleWalk::Kind::Text || !step.atLineStart) {
            refer(rest.substr(0, 1));
        } else if (isNumber) {
            last = static_cast<unsigned>(rest[0] - '0');
            result += rest[0];
        } else {
            const std::string number = std::to_string(++last) + '.';
            refer(result.ends_with(highOpening) ? number : written(last)); // it may have its tags
            done = place + number.size();
        }
    }
    result.append(article, done);
    article = std::move(result);
}

void protect(std::string& article, LineStart lineStart)
{
    if (!hasNumber(article))
        return;
    const bool keepsLineStarts = lineStart == LineStart::Trusted || isSequence(article);
    std::string result;
    result.reserve(article.size() + 4 * separator.size());
    ArticleWalk walk(article, ArticleWalk::Labels::Unknown);
    for (ArticleWalk::Step step; walk.next(step);) {
        result += step.text;
        if (step.kind == ArticleWalk::Kind::Text && isNumberAt(article, step.end - 1) &&
            !(step.atLineStart && keepsLineStarts))
            result += separator;
    }
    article = std::move(result);
}

bool beginsWithNumber(std::string_view article)
{
    ArticleWalk walk(article, ArticleWalk::Labels::Unknown);
    for (ArticleWalk::Step step; walk.next(step);) {
        if (step.kind == ArticleWalk::Kind::Tag)
            continue;
        if (step.text != " " && step.text != "\t" && step.text != "\n")
            return isNumberAt(article, step.end - step.text.size());
    }
    return false;
}

bool hasNumber(std::string_view article)
{
    for (size_t dot = article.find('.'); dot != std::string_view::npos;
         dot = article.find('.', dot + 1)) {
        if (dot > 0 && isDigit(article[dot - 1]))
            return true;
    }
    return false;
}

} // namespace teskel::sensenumbers
