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

bool isDigit(char c)
{
    return isSenseDigit(static_cast<unsigned char>(c));
}

bool isNumberAt(std::string_view text, size_t position)
{
    return position + 1 < text.size() && isDigit(text[position]) && text[position + 1] == '.';
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
        text = "<b><font color=\"#0000FF\">" + text + "</font></b>";
    return text;
}

void referDigits(std::string& article)
{
    if (std::none_of(article.begin(), article.end(), isDigit))
        return;
    std::string result;
    result.reserve(article.size() + 64);
    ArticleWalk walk(article);
    for (ArticleWalk::Step step; walk.next(step);) {
        const bool isSenseNumber = step.kind == ArticleWalk::Kind::Byte && step.atLineStart &&
                                   isNumberAt(article, step.end - 1);
        for (const char c : step.text) {
            if (isDigit(c) && !isSenseNumber)
                result += letterReference(static_cast<unsigned char>(c));
            else
                result += c;
        }
    }
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
        if (step.kind == ArticleWalk::Kind::Byte && isNumberAt(article, step.end - 1) &&
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
