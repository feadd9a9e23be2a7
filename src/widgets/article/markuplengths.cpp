// SPDX-License-Identifier: MIT
#include "widgets/article/markuplengths.h"

#include "widgets/article/markuptokenizer.h"

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
    return text.startsWith(u"inf", Qt::CaseInsensitive) ||
           text.startsWith(u"nan", Qt::CaseInsensitive);
}

/// Calls `take` with each number in the text, rounded up, and what follows it.
template<typename Take>
void forEachNumber(QStringView text, Take take)
{
    qsizetype at = 0;
    const auto skipDigits = [&] {
        const qsizetype begin = at;
        while (at < text.size() && isDigit(text.at(at)))
            ++at;
        return text.sliced(begin, at - begin);
    };
    while (at < text.size()) {
        if (!isDigit(text.at(at))) {
            ++at;
            continue;
        }
        const QStringView digits = skipDigits();
        double number = digits.size() > mostDigits ? endless : digits.toDouble();
        if (at < text.size() && text.at(at) == u'.') {
            ++at;
            skipDigits();
            number += 1;
        }
        take(number, text.sliced(at));
    }
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
    // Where no style says how high lines are, they fit.
    const double line = std::max(_font * lineHeightOfPoint, _line * lineHeight);
    const double lines = line > 0 ? line * static_cast<double>(characters) : 0;
    return pixels(_once, 1) + pixels(_everyCell, cells + 1) + pixels(_everyElement, elements) +
           lines;
}

/// Goes through the declarations; notes how high they make lines, and adds up the other lengths.
MarkupLengths::Sum MarkupLengths::readStyle(QStringView style)
{
    Sum sum;
    if (MarkupTokenizer::mayHoldMarkup(style) || style.contains(u'\\'))
        sum.pixels = endless;
    qsizetype end = 0;
    for (qsizetype begin = 0; begin < style.size(); begin = end + 1) {
        end = begin;
        while (end < style.size() && style.at(end) != u';' && style.at(end) != u'{' &&
               style.at(end) != u'}')
            ++end;
        const QStringView declaration = style.sliced(begin, end - begin);
        const qsizetype colon = declaration.indexOf(u':');
        if (colon < 0)
            continue;
        const QStringView name = declaration.first(colon).trimmed();
        const QStringView value = declaration.sliced(colon + 1);
        if (name.contains(u"-qt-paragraph-type", Qt::CaseInsensitive) ||
            name.contains(u"-qt-table-type", Qt::CaseInsensitive))
            _misplacesCells = true;
        if (isOneOf(name, {u"color", u"background", u"background-color", u"font-weight"}) ||
            name.startsWith(u"-qt-"))
            continue;
        if (name.contains(u"font", Qt::CaseInsensitive) ||
            name.contains(u"line-height", Qt::CaseInsensitive)) {
            readLine(value);
            continue;
        }
        forEachNumber(value, [&sum](double number, QStringView unit) {
            (isFontHeight(unit) ? sum.fonts : sum.pixels) += number;
        });
    }
    return sum;
}

/// The value of a property that makes lines higher: pixels, points, or a multiple or percentage.
void MarkupLengths::readLine(QStringView value)
{
    forEachNumber(value, [this](double number, QStringView unit) {
        if (unit.startsWith(u"px", Qt::CaseInsensitive) ||
            unit.startsWith(u"pt", Qt::CaseInsensitive))
            _font = std::max(_font, number);
        else
            _line = std::max(_line, unit.startsWith(u'%') ? number / 100 : number);
    });
}

} // namespace teskel
