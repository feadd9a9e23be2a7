// SPDX-License-Identifier: MIT
#include "lexicon/text/articlewalk.h"

#include "script/letterreference.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <string>

namespace teskel
{

namespace
{

/// Length of the tag or comment that `text` begins with, 0 when there is none.
size_t tagLength(std::string_view text)
{
    if (text.size() < 2 || text.front() != '<')
        return 0;
    const char next = text[1];
    if (!std::isalpha(static_cast<unsigned char>(next)) && next != '/' && next != '!')
        return 0;
    const size_t end = text.find('>');
    return end == std::string_view::npos ? 0 : end + 1;
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

} // namespace

bool ArticleWalk::next(Step& step)
{
    if (_position >= _article.size())
        return false;
    const std::string_view rest = _article.substr(_position);
    step.atLineStart = _atLineStart;
    size_t length = 0;
    if (rest.front() == '<' && (length = tagLength(rest)) > 0) {
        step.kind = Kind::Tag;
        _atLineStart = _atLineStart || breaksLine(rest.substr(0, length));
    } else if (rest.front() == '&' && (length = readLetterReference(rest).length) > 0) {
        step.kind = Kind::Reference;
        _atLineStart = false;
    } else {
        step.kind = Kind::Byte;
        length = 1;
        if (rest.front() == '\n')
            _atLineStart = true;
        else if (rest.front() != ' ' && rest.front() != '\t')
            _atLineStart = false;
    }
    step.text = rest.substr(0, length);
    _position += length;
    step.end = _position;
    return true;
}

} // namespace teskel
