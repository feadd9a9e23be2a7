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
/// Where its lines can end is looked for in so many at once.
constexpr qsizetype chunk = 1'024;
constexpr qsizetype longestReference = 12;
/// MarkupLimiter allows no deeper tables.
constexpr int deepestTable = 4;
constexpr int mostSpanned = 100;

bool isSpace(QChar character)
{
    switch (character.unicode()) {
    case u' ':
    case u'\n':
        return true;
    case u'\xA0':
    case u'\u2007':
    case u'\u202F':
        return false;
    default:
        return character.isSpace();
    }
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

/// The length of the character reference that `text` begins with, or 0.
qsizetype referenceLength(QStringView text)
{
    if (!text.startsWith(u'&'))
        return 0;
    const QStringView head = text.first(std::min(text.size(), longestReference));
    return head.indexOf(u';') + 1;
}

/// What a reference by number stands for, or 0.
char32_t referredCharacter(QStringView reference)
{
    QStringView number = reference.sliced(1, reference.size() - 2);
    if (!number.startsWith(u'#'))
        return 0;
    number = number.sliced(1);
    return number.startsWith(u'x', Qt::CaseInsensitive) ? number.sliced(1).toUInt(nullptr, 16)
                                                        : number.toUInt();
}

bool isPlainReference(QStringView reference)
{
    static constexpr QStringView plain[] = {u"&amp;", u"&lt;", u"&gt;", u"&quot;", u"&nbsp;"};
    return std::find(std::begin(plain), std::end(plain), reference) != std::end(plain);
}

/// A mark on a letter, a mark that is not seen, a control.
bool isOdd(char32_t character)
{
    if (character < 0x80)
        return character < U' ' || character == 0x7F;
    switch (QChar::category(character)) {
    case QChar::Mark_NonSpacing:
    case QChar::Mark_SpacingCombining:
    case QChar::Mark_Enclosing:
    case QChar::Other_Control:
    case QChar::Other_Format:
        return true;
    default:
        return false;
    }
}

qint64 spannedColumns(const MarkupTokenizer& tag)
{
    qint64 columns = 1;
    for (const MarkupTokenizer::Attribute& attribute : tag.attributes()) {
        if (attribute.name.compare(u"colspan", Qt::CaseInsensitive) == 0)
            columns = std::clamp(attribute.value.toInt(), 1, mostSpanned);
    }
    return columns;
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
            cost.takeClosingTag(tokens.name());
        } else {
            cost.takeStyleSheet(tokens.text());
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

void ShowingCost::endLine()
{
    _unbroken = 0;
    _unbrokenWeight = 0;
}

void ShowingCost::takeTag(const MarkupTokenizer& tag)
{
    const QString& name = tag.name();
    const Kind kind = MarkupTree::kindOf(name);
    const bool endsLine = MarkupTree::endsLine(name);
    _lettering.takeTag(tag);
    if (kind == Kind::Table || kind == Kind::Row || kind == Kind::Cell)
        takeTable(tag);
    else if (kind == Kind::ListItem || name == "ul"_L1 || name == "ol"_L1)
        charge(listCost);
    else if (kind == Kind::Picture)
        charge(pictureCost);
    else
        charge(endsLine ? paragraphCost : letteringCost);
    charge(_styleSheet / styleSheetDivisor);
    takeAttributes(tag);
    takeFonts();
    if (endsLine)
        endLine();
    else
        _unbrokenWeight += runWeight;
    if (kind == Kind::StyleSheet)
        _sheet = Sheet::Opened;
    if (_lettering.hasRightToLeft())
        _runs.expectRightToLeft();
    if (_lettering.keepsLineFeeds())
        _lineFeedCost = paragraphCost;
}

void ShowingCost::takeAttributes(const MarkupTokenizer& tag)
{
    const auto isAnchor = [](const MarkupTokenizer::Attribute& attribute) {
        return attribute.name.compare(u"name", Qt::CaseInsensitive) == 0 ||
               attribute.name.compare(u"id", Qt::CaseInsensitive) == 0;
    };
    const auto& attributes = tag.attributes();
    const auto anchors = std::count_if(attributes.begin(), attributes.end(), isAnchor);
    charge(anchors * anchorCost + static_cast<qint64>(attributes.size()) * attributeCost);
}

/// What stands in a table is laid out twice: once to find out how wide the columns are.
void ShowingCost::takeTable(const MarkupTokenizer& tag)
{
    const Kind kind = MarkupTree::kindOf(tag.name());
    const bool isNested = kind == Kind::Table && _openTables > 0;
    if (kind == Kind::Table || _openTables == 0)
        ++_openTables;
    if (_tables == 0 || isNested)
        _tables = std::min(_tables + 1, deepestTable);
    qint64 cells = 1;
    if (kind == Kind::Cell) {
        cells = spannedColumns(tag);
        _rowCells += cells;
        _columns = std::max(_columns, _rowCells);
    } else {
        _rowCells = 0;
        cells += kind == Kind::Row ? _columns : 0;
    }
    charge(cells * cellCost);
}

void ShowingCost::takeClosingTag(const QString& name)
{
    if (name == "table"_L1)
        _openTables = std::max(0, _openTables - 1);
    if (MarkupTree::endsLine(name))
        endLine();
    else
        _unbrokenWeight += runWeight;
}

/// A style sheet may be taken up again behind a comment or a tag.
void ShowingCost::takeStyleSheet(QStringView text)
{
    if (_sheet == Sheet::None || (_sheet == Sheet::Read && !text.contains(u':')))
        return;
    if (_sheet == Sheet::Opened)
        _lettering.takeStyle(text);
    else
        _lettering.takeStyle(u'\\' + text.toString());
    _sheet = Sheet::Read;
    _styleSheet += text.size();
    _lineFeedCost = paragraphCost;
    takeFonts();
}

void ShowingCost::takeFonts()
{
    charge((_lettering.fonts() - _fonts) * fontCost);
    _fonts = _lettering.fonts();
}

bool ShowingCost::endsLine(QChar character) const
{
    if (!isSpace(character))
        return false;
    return character == u'\n' ? _lettering.endsLinesAtLineFeeds() : _lettering.endsLinesAtBlanks();
}

/// @return how much of the text was taken until all was spent
qsizetype ShowingCost::takeText(QStringView text)
{
    for (qsizetype begin = 0; begin < text.size();) {
        const auto* const found =
            std::find_if(text.begin() + begin, text.end(),
                         [this](QChar character) { return endsLine(character); });
        const qsizetype end = found - text.begin();
        const qsizetype taken = takeWord(text.sliced(begin, end - begin));
        if (isSpent())
            return begin + taken;
        if (end < text.size()) {
            takeUnbroken(text.sliced(end, 1));
            endLine();
            charge(text.at(end) == u'\n' ? _lineFeedCost : 0);
            if (isSpent())
                return end;
        }
        begin = end + 1;
    }
    return text.size();
}

/// @param word without a blank that ends a line
qsizetype ShowingCost::takeWord(QStringView word)
{
    for (qsizetype begin = 0; begin < word.size();) {
        const qsizetype reference = referenceLength(word.sliced(begin));
        if (reference > 0) {
            takeReference(word.sliced(begin, reference));
            if (isSpent())
                return begin;
            begin += reference;
            continue;
        }
        const qsizetype next = word.indexOf(u'&', begin + 1);
        const qsizetype end = std::min(next < 0 ? word.size() : next, begin + chunk);
        const qsizetype taken = takeLetters(word.sliced(begin, end - begin));
        if (isSpent())
            return begin + taken;
        begin = end;
    }
    return word.size();
}

/// Many scripts have places within a word where a line can end.
qsizetype ShowingCost::takeLetters(QStringView letters)
{
    const bool mayEndLine =
        _lettering.endsLinesAtBlanks() && _unbrokenWeight + letters.size() > usualWord;
    QTextBoundaryFinder lineEnds;
    if (mayEndLine)
        lineEnds = QTextBoundaryFinder(QTextBoundaryFinder::Line, letters.data(), letters.size());
    for (qsizetype begin = 0; begin < letters.size();) {
        const qsizetype next = mayEndLine ? lineEnds.toNextBoundary() : -1;
        const qsizetype end = next < 0 ? letters.size() : next;
        for (; begin < end; begin += step) {
            takeUnbroken(letters.sliced(begin, std::min(step, end - begin)));
            if (isSpent())
                return begin;
        }
        begin = end;
        if (end < letters.size())
            endLine();
    }
    return letters.size();
}

/// What it stands for may keep a line from ending in front of it and behind it.
void ShowingCost::takeReference(QStringView reference)
{
    const char32_t character = referredCharacter(reference);
    const bool isPlain = isPlainReference(reference);
    if (!isPlain)
        charge(turnedRunCost);
    if (character != 0)
        _runs.beginsWith(character);
    takeScripts();
    addUnbroken(reference.size(), reference.size() + (isPlain ? 0 : runWeight));
}

void ShowingCost::takeUnbroken(QStringView part)
{
    qint64 runs = 0;
    qint64 odd = 0;
    for (qsizetype index = 0; index < part.size(); ++index) {
        char32_t character = part.at(index).unicode();
        if (part.at(index).isHighSurrogate() && index + 1 < part.size()) {
            character = QChar::surrogateToUcs4(part.at(index), part.at(index + 1));
            ++index;
        }
        const bool isTab = character == U'\t' && !_lettering.endsLinesAtBlanks();
        const bool isObject = character == QChar::ObjectReplacementCharacter;
        if (_runs.beginsWith(character) || isTab || isObject)
            ++runs;
        else if (isOdd(character))
            ++odd;
    }
    charge(runs * (_runs.hasRightToLeft() ? turnedRunCost : runCost) + odd * oddCharacterCost);
    takeScripts();
    const qint64 heavy = _lettering.isIntricate() ? part.size() : runs + odd;
    addUnbroken(part.size(), part.size() + heavy * runWeight);
}

void ShowingCost::takeScripts()
{
    const qint64 scripts = std::max<qint64>(_runs.scripts(), usualScripts);
    charge((scripts - _scripts) * scriptCost);
    _scripts = scripts;
}

void ShowingCost::addUnbroken(qint64 characters, qint64 weight)
{
    const auto costOf = [this] {
        return _unbrokenWeight <= usualWord ? 0 : _unbroken * _unbrokenWeight / wordDivisor;
    };
    const qint64 before = costOf();
    _unbroken += characters;
    _unbrokenWeight += weight;
    qint64 each = _lettering.isIntricate() ? intricateCost : 0;
    each += _lettering.isNarrow() ? narrowCost : 0;
    charge(costOf() - before + characters * each);
    _cost += ((characters << _tables) - characters) * tableCost;
    _characters += characters;
}

} // namespace teskel
