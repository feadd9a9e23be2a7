// SPDX-License-Identifier: MIT
#include "lexicon/text/articlewalk.h"

#include "lexicon/text/senseruns.h"
#include "lexicon/text/tags.h"
#include "script/letterreference.h"

#include <algorithm>

namespace teskel
{

namespace
{

/// Length of what no caller looks into: letters and signs, none of which may begin a step of its
/// own.
size_t wordLength(std::string_view text)
{
    const auto isOfWord = [](char c) {
        return c != '<' && c != '&' && c != ' ' && c != '\t' && c != '\n' && (c < '0' || c > '9');
    };
    const auto end = std::find_if_not(text.begin(), text.end(), isOfWord);
    return static_cast<size_t>(end - text.begin());
}

/// Length of the kind of word in italics, "<i>adj</i>", that `text` begins with; 0 when there is
/// none.
size_t labelLength(std::string_view text)
{
    constexpr std::string_view opening = "<i>";
    constexpr std::string_view closing = "</i>";
    if (!text.starts_with(opening))
        return 0;
    const size_t end = text.find(closing);
    if (end == std::string_view::npos ||
        !senseruns::isLabel(text.substr(opening.size(), end - opening.size())))
        return 0;
    return end + closing.size();
}

} // namespace

bool ArticleWalk::next(Step& step)
{
    if (_position >= _article.size())
        return false;
    const std::string_view rest = _article.substr(_position);
    step.atLineStart = _atLineStart;
    size_t length = wordLength(rest);
    if (length > 0) {
        step.kind = Kind::Text;
        _atLineStart = false;
    } else if (_atLineStart && _knowsLabels && (length = labelLength(rest)) > 0) {
        step.kind = Kind::Tag;
    } else if ((length = tags::atBeginning(rest).size()) > 0) {
        step.kind = Kind::Tag;
        _atLineStart = _atLineStart || tags::breaksLine(rest.substr(0, length));
    } else if (rest.front() == '&' && (length = readLetterReference(rest).length) > 0) {
        step.kind = Kind::Reference;
        _atLineStart = false;
    } else {
        step.kind = Kind::Text;
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
