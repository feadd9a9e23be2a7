// SPDX-License-Identifier: MIT
#include "widgets/article/lettering.h"

#include "widgets/article/styledeclarations.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace teskel
{

namespace
{

/// "<big>" in "<big>" is larger still, a few times.
constexpr qint64 relativeSizes = 4;

bool isOneOf(QStringView name, std::initializer_list<QStringView> names)
{
    return std::any_of(names.begin(), names.end(), [name](QStringView known) {
        return name.compare(known, Qt::CaseInsensitive) == 0;
    });
}

bool hasDigit(QStringView text)
{
    return std::any_of(text.begin(), text.end(), [](QChar c) { return c.isDigit(); });
}

} // namespace

void Lettering::takeTag(const MarkupTokenizer& tag)
{
    const QString& name = tag.name();
    if (isOneOf(name, {u"big", u"small"}))
        count(_sizes, name, {}, relativeSizes);
    else if (isOneOf(name, {u"sub", u"sup", u"h1", u"h2", u"h3", u"h4", u"h5", u"h6"}))
        count(_sizes, name, {});
    else if (isOneOf(name, {u"tt", u"code", u"kbd", u"samp", u"pre"}))
        count(_faces, u"tt", {});
    else if (isOneOf(name, {u"ul", u"ol", u"dl", u"dd", u"blockquote"}))
        ++_indents;
    if (name == "pre"_L1) {
        _endsLinesAtBlanks = false;
        _keepsLineFeeds = true;
    } else if (name == "nobr"_L1) {
        _endsLinesAtBlanks = false;
        _endsLinesAtLineFeeds = false;
    }
    for (const MarkupTokenizer::Attribute& attribute : tag.attributes())
        takeAttribute(name, attribute);
}

void Lettering::takeAttribute(const QString& tag, const MarkupTokenizer::Attribute& attribute)
{
    if (MarkupTokenizer::mayHoldMarkup(attribute.name))
        takeAnyStyle();
    else if (isOneOf(attribute.name, {u"style"}))
        takeStyle(attribute.value);
    else if (isOneOf(attribute.name, {u"dir"}))
        _hasRightToLeft = true;
    else if (tag == "font"_L1 && isOneOf(attribute.name, {u"size"}))
        count(_sizes, u"size", attribute.value);
    else if (tag == "font"_L1 && isOneOf(attribute.name, {u"face"}))
        count(_faces, u"face", attribute.value);
}

void Lettering::takeStyle(QStringView style)
{
    if (MarkupTokenizer::mayHoldReference(style) || style.contains(u'\\'))
        takeAnyStyle();
    forEachDeclaration(
        style, [this](QStringView name, QStringView value) { takeDeclaration(name, value); });
}

void Lettering::takeDeclaration(QStringView name, QStringView value)
{
    if (isOneOf(name, {u"color", u"background", u"background-color", u"font-style", u"text-align",
                       u"text-decoration"}))
        return;
    if (name.contains(u"white-space", Qt::CaseInsensitive))
        takeAnyStyle();
    else if (isOneOf(name, {u"font-size"}))
        count(_sizes, name, value);
    else if (isOneOf(name, {u"font-family"}))
        count(_faces, name, value);
    else if (!isOneOf(name, {u"font-weight"}) || hasDigit(value))
        count(_others, name, value);
    _isIntricate = _isIntricate || !name.startsWith(u"font-") ||
                   name.contains(u"variant", Qt::CaseInsensitive);
}

/// @param fonts goes up by `number` for a value that is new
void Lettering::count(qint64& fonts, QStringView kind, QStringView value, qint64 number)
{
    const QString key = kind.toString() + u' ' + value.toString();
    if (_seen.contains(key))
        return;
    _seen.insert(key);
    fonts += number;
}

void Lettering::takeAnyStyle()
{
    _isIntricate = true;
    _endsLinesAtBlanks = false;
    _endsLinesAtLineFeeds = false;
    _keepsLineFeeds = true;
    _hasRightToLeft = true;
}

} // namespace teskel
