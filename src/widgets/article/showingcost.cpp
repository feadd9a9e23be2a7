// SPDX-License-Identifier: MIT
#include "widgets/article/showingcost.h"

#include "widgets/article/markuptokenizer.h"
#include "widgets/article/markuptree.h"

#include <QTextBoundaryFinder>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace teskel
{

namespace
{

using Kind = MarkupTree::Kind;
using Token = MarkupTokenizer::Token;

/// In steps of so many characters an endless word is measured.
constexpr qsizetype step = 32;
constexpr qsizetype longestReference = 12;

bool isSpace(QChar character)
{
    return character == u' ' || character == u'\n' || (character.isSpace() && character != u'\xA0');
}

/// Where to cut so that neither a character nor a reference to one is cut in two.
qsizetype wholeCharacters(QStringView text, qsizetype size)
{
    if (size > 0 && size < text.size() && text.at(size).isLowSurrogate())
        --size;
    const qsizetype begin = std::max<qsizetype>(0, size - longestReference);
    const QStringView tail = text.sliced(begin, size - begin);
    const qsizetype reference = tail.lastIndexOf(u'&');
    return reference >= 0 && !tail.sliced(reference).contains(u';') ? begin + reference : size;
}

} // namespace

qsizetype ShowingCost::showableMarkup(QStringView markup)
{
    if (markup.size() <= alwaysShown)
        return markup.size();
    ShowingCost cost;
    MarkupTokenizer tokens(markup);
    for (;;) {
        const qsizetype begin = tokens.position();
        const Token token = tokens.next();
        if (token == Token::End)
            return markup.size();
        if (token == Token::OpeningTag) {
            cost.takeTag(tokens);
            if (cost.isSpent())
                return begin;
        } else if (token == Token::ClosingTag) {
            if (MarkupTree::endsLine(tokens.name()))
                cost._unbroken = 0;
        } else {
            const qsizetype taken = cost.takeText(tokens.text());
            if (cost.isSpent())
                return wholeCharacters(markup, begin + taken);
        }
    }
}

qsizetype ShowingCost::showableText(QStringView text)
{
    if (text.size() <= alwaysShown)
        return text.size();
    ShowingCost cost;
    cost._lineFeedCost = paragraphCost;
    const qsizetype taken = cost.takeText(text);
    return cost.isSpent() ? wholeCharacters(text, taken) : text.size();
}

void ShowingCost::takeTag(const MarkupTokenizer& tag)
{
    const Kind kind = MarkupTree::kindOf(tag.name());
    const bool endsLine = MarkupTree::endsLine(tag.name());
    if (kind == Kind::Table || kind == Kind::Row || kind == Kind::Cell)
        _cost += cellCost;
    else
        _cost += endsLine ? paragraphCost : letteringCost;
    if (endsLine)
        _unbroken = 0;
    const auto isStyle = [](const MarkupTokenizer::Attribute& attribute) {
        return attribute.name.compare(u"style", Qt::CaseInsensitive) == 0;
    };
    if (tag.name() == "pre"_L1 || tag.name() == "style"_L1 ||
        std::any_of(tag.attributes().begin(), tag.attributes().end(), isStyle))
        _lineFeedCost = paragraphCost;
}

/// @return how much of the text was taken until all was spent
qsizetype ShowingCost::takeText(QStringView text)
{
    for (qsizetype begin = 0; begin < text.size();) {
        const auto* const found = std::find_if(text.begin() + begin, text.end(), isSpace);
        const qsizetype end = found - text.begin();
        const qsizetype taken = takeWord(text.sliced(begin, end - begin));
        if (isSpent())
            return begin + taken;
        if (end < text.size()) {
            _unbroken = 0;
            ++_characters;
            _cost += text.at(end) == u'\n' ? _lineFeedCost : 0;
            if (isSpent())
                return end;
        }
        begin = end + 1;
    }
    return text.size();
}

/// @param word without white space; many scripts have places in it where a line can end
qsizetype ShowingCost::takeWord(QStringView word)
{
    if (_unbroken + word.size() <= usualWord) {
        _unbroken += word.size();
        _characters += word.size();
        return word.size();
    }
    QTextBoundaryFinder lineEnds(QTextBoundaryFinder::Line, word.data(), word.size());
    for (qsizetype begin = 0; begin < word.size();) {
        const qsizetype next = lineEnds.toNextBoundary();
        const qsizetype end = next < 0 ? word.size() : next;
        for (; begin < end; begin += step) {
            if (!takeUnbroken(std::min(step, end - begin)))
                return begin;
        }
        begin = end;
        if (end < word.size())
            _unbroken = 0;
    }
    return word.size();
}

bool ShowingCost::takeUnbroken(qsizetype size)
{
    const auto costOf = [](qint64 length) {
        return length <= usualWord ? 0 : length * length / wordDivisor;
    };
    _cost += costOf(_unbroken + size) - costOf(_unbroken);
    _unbroken += size;
    _characters += size;
    return !isSpent();
}

} // namespace teskel
