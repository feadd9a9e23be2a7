// SPDX-License-Identifier: MIT
#include "widgets/article/markuplengths.h"

#include "widgets/article/markuptokenizer.h"
#include "widgets/article/styledeclarations.h"

#include <QString>

#include <algorithm>
#include <limits>

namespace teskel
{

namespace
{

constexpr double endless = std::numeric_limits<double>::infinity();
constexpr qsizetype mostDigits = 9;
/// A margin, a padding or a border is there twice.
constexpr double sides = 2;
/// The height of a line in any font that the program itself chooses.
constexpr double usualLineHeight = 100;
/// Letters so large, in pixels or points, and lines so high, in lines, do no harm in any article.
constexpr double usualFont = 60;
constexpr double usualLine = 10;
/// The height of a line in a font of one point.
constexpr double lineHeightOfPoint = 2;

bool isOneOf(QStringView name, std::initializer_list<QStringView> names)
{
    return std::any_of(names.begin(), names.end(), [name](QStringView known) {
        return name.compare(known, Qt::CaseInsensitive) == 0;
    });
}

bool isDigit(QChar character)
{
    return character >= u'0' && character <= u'9';
}

/// Whether it is one of the words that count as a number.
bool isWordForNumber(QStringView text)
{
    text = text.trimmed();
    if (text.startsWith(u'-') || text.startsWith(u'+'))
        text = text.sliced(1);
    return isOneOf(text, {u"inf", u"infinity", u"nan"});
}

/// Calls `take` with each number in the text and what follows it.
template<typename Take>
void forEachNumber(QStringView text, Take take)
{
    qsizetype at = 0;
    const auto skipDigits = [&] {
        const qsizetype begin = at;
        while (at < text.size() && isDigit(text.at(at)))
            ++at;
        return at - begin;
    };
    while (at < text.size()) {
        if (!isDigit(text.at(at))) {
            ++at;
            continue;
        }
        const qsizetype begin = at;
        const bool isTooLong = skipDigits() > mostDigits;
        if (at < text.size() && text.at(at) == u'.') {
            ++at;
            if (skipDigits() == 0)
                --at;
        }
        const double number = isTooLong ? endless : text.sliced(begin, at - begin).toDouble();
        take(number, text.sliced(at));
    }
}

bool isLength(QStringView unit)
{
    return unit.startsWith(u"px", Qt::CaseInsensitive) ||
           unit.startsWith(u"pt", Qt::CaseInsensitive);
}

bool isFontHeight(QStringView unit)
{
    return unit.startsWith(u"em", Qt::CaseInsensitive) ||
           unit.startsWith(u"ex", Qt::CaseInsensitive);
}

} // namespace

void MarkupLengths::addAttribute(QStringView name, QStringView value)
{
    if (isOneOf(name, {u"style"})) {
        const Sum sum = readStyle(value);
        _once.pixels += sum.pixels;
        _once.fonts += sum.fonts;
        return;
    }
    const bool isForCells = isOneOf(name, {u"border", u"cellpadding", u"cellspacing"});
    const bool isHidden = MarkupTokenizer::mayHoldMarkup(name);
    if (!isForCells && !isHidden && !isOneOf(name, {u"width", u"height"}))
        return;
    double& pixels = isForCells ? _everyCell.pixels : _once.pixels;
    if (isHidden || MarkupTokenizer::mayHoldMarkup(value) || isWordForNumber(value))
        pixels = endless;
    forEachNumber(value, [&pixels](double number, QStringView unit) {
        const bool hasExponent = unit.startsWith(u'e', Qt::CaseInsensitive);
        pixels += hasExponent ? endless : number;
    });
}

void MarkupLengths::addStyleSheet(QStringView sheet)
{
    const Sum sum = readStyle(sheet);
    _everyElement.pixels += sum.pixels;
    _everyElement.fonts += sum.fonts;
}

double MarkupLengths::extent(qint64 cells, qint64 elements, qint64 characters) const
{
    const double lineHeight = std::max(usualLineHeight, _font * lineHeightOfPoint);
    const auto pixels = [lineHeight](const Sum& sum, qint64 count) {
        const double all = sum.pixels + sum.fonts * lineHeight;
        return all > 0 ? all * sides * static_cast<double>(count) : 0;
    };
    // Where no style makes lines unusually high, they fit.
    const bool isUsual = _font <= usualFont && _line <= usualLine;
    const double line = std::max(_font * lineHeightOfPoint, _line * lineHeight);
    const double lines = isUsual ? 0 : line * static_cast<double>(characters);
    return pixels(_once, 1) + pixels(_everyCell, cells + 1) + pixels(_everyElement, elements) +
           lines;
}

/// Goes through the declarations; notes how high they make lines, and adds up the other lengths.
MarkupLengths::Sum MarkupLengths::readStyle(QStringView style)
{
    Sum sum;
    if (MarkupTokenizer::mayHoldMarkup(style) || style.contains(u'\\'))
        sum.pixels = endless;
    _hasGradient = _hasGradient || style.contains(u"gradient", Qt::CaseInsensitive);
    forEachDeclaration(style, [this, &sum](QStringView name, QStringView value) {
        readDeclaration(name, value, sum);
    });
    return sum;
}

void MarkupLengths::readDeclaration(QStringView name, QStringView value, Sum& sum)
{
    if (name.contains(u"-qt-paragraph-type", Qt::CaseInsensitive) ||
        name.contains(u"-qt-table-type", Qt::CaseInsensitive))
        _misplacesCells = true;
    if (isOneOf(name, {u"color", u"background", u"background-color", u"font-weight"}) ||
        name.startsWith(u"-qt-"))
        return;
    if (name.contains(u"font", Qt::CaseInsensitive)) {
        if (isOneOf(name, {u"font", u"font-size"}) || name.contains(u'/'))
            readFont(value);
        return;
    }
    if (name.contains(u"line-height", Qt::CaseInsensitive)) {
        readLine(value);
        return;
    }
    forEachNumber(value, [&sum](double number, QStringView unit) {
        (isFontHeight(unit) ? sum.fonts : sum.pixels) += number;
    });
}

/// The value of a property that makes letters larger: what is no length says nothing about that.
void MarkupLengths::readFont(QStringView value)
{
    forEachNumber(value, [this](double number, QStringView unit) {
        if (isLength(unit))
            _font = std::max(_font, number);
    });
}

/// The value of a property that makes lines higher: a length, a multiple or a percentage.
void MarkupLengths::readLine(QStringView value)
{
    forEachNumber(value, [this](double number, QStringView unit) {
        if (isLength(unit))
            _font = std::max(_font, number);
        else
            _line = std::max(_line, unit.startsWith(u'%') ? number / 100 : number);
    });
}

} // namespace teskel
