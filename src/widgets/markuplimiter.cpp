// SPDX-License-Identifier: MIT
#include "widgets/markuplimiter.h"

#include <QRegularExpression>
#include <QStringList>

#include <algorithm>

namespace teskel
{

namespace
{
/// With fewer tags than this, and neither tables nor pictures, no structure can be expensive.
constexpr qsizetype HarmlessTags = 256;
constexpr qsizetype HarmlessReferences = 256;

/// Elements that never contain themselves: the parser closes the open one.
bool isFlat(const QString& name)
{
    static const QStringList names{
        QStringLiteral("br"),    QStringLiteral("hr"),    QStringLiteral("p"),
        QStringLiteral("li"),    QStringLiteral("dt"),    QStringLiteral("dd"),
        QStringLiteral("tbody"), QStringLiteral("thead"), QStringLiteral("tfoot"),
    };
    return names.contains(name);
}

bool isCell(const QString& name)
{
    return name == QLatin1String("td") || name == QLatin1String("th");
}

bool isTablePart(const QString& name)
{
    return isCell(name) || name == QLatin1String("tr") || name == QLatin1String("caption");
}

bool isBlock(const QString& name)
{
    static const QStringList names{
        QStringLiteral("table"),  QStringLiteral("div"),  QStringLiteral("ul"),
        QStringLiteral("ol"),     QStringLiteral("dl"),   QStringLiteral("blockquote"),
        QStringLiteral("center"), QStringLiteral("body"), QStringLiteral("html"),
        QStringLiteral("qt"),     QStringLiteral("pre"),
    };
    return names.contains(name);
}

/// Attributes of which this text and any parser agree where they end.
bool areWellFormed(QStringView attributes)
{
    static const QRegularExpression pattern(QStringLiteral(
        R"(^(?:\s++[\w:-]++(?:\s*+=\s*+(?:"[^"]*+"|'[^']*+'|[^\s"'=]++))?+)*+\s*+/?+$)"));
    return pattern.match(attributes.toString()).hasMatch();
}

/// Whether no length in these attributes can overflow the layout, which would then never end.
bool areModest(QStringView attributes)
{
    static const QRegularExpression colour(QStringLiteral(R"(#\w++)"));
    static const QRegularExpression huge(QStringLiteral(R"(\d{5}|\d\.?e[+\-\dmx]|\binf|\bnan\b)"),
                                         QRegularExpression::CaseInsensitiveOption);
    return !attributes.toString().remove(colour).contains(huge);
}

/// The largest number in an attribute whose name ends in "span", at least 1.
int largestSpan(QStringView attributes)
{
    static const QRegularExpression pattern(QStringLiteral(R"(span\s*=\s*["']?\s*\+?(\d+))"),
                                            QRegularExpression::CaseInsensitiveOption);
    int largest = 1;
    auto spans = pattern.globalMatch(attributes.toString());
    while (spans.hasNext()) {
        bool fits = false;
        const int span = spans.next().captured(1).toInt(&fits);
        largest = std::max(largest, fits ? span : MarkupLimiter::MaxRows);
    }
    return largest;
}
} // namespace

QString MarkupLimiter::limited(const QString& markup)
{
    const bool harmless = markup.count(u'<') <= HarmlessTags &&
                          markup.count(u'&') <= HarmlessReferences &&
                          !markup.contains(QLatin1String("table"), Qt::CaseInsensitive) &&
                          !markup.contains(QLatin1String("img"), Qt::CaseInsensitive);
    return harmless ? markup : MarkupLimiter(markup).run();
}

QString MarkupLimiter::run()
{
    _result.reserve(_source.size());
    while (_position < _source.size()) {
        if (_source.at(_position) == u'<') {
            takeTag();
        } else {
            const qsizetype next = _source.indexOf(u'<', _position);
            takeText(next < 0 ? _source.size() : next);
        }
    }
    return _result;
}

/// An "&" that begins no character reference costs a search to the end of the text.
void MarkupLimiter::takeText(qsizetype end)
{
    static const QRegularExpression reference(QStringLiteral(R"(\G&#?\w{1,10}(?:;|$))"));
    while (_position < end) {
        qsizetype ampersand = _source.indexOf(u'&', _position);
        if (ampersand < 0 || ampersand > end)
            ampersand = end;
        _result += QStringView(_source).sliced(_position, ampersand - _position);
        _position = ampersand;
        if (_position < end) {
            const bool isReference = reference.match(_source, _position).hasMatch();
            _result += isReference ? QLatin1String("&") : QLatin1String("&amp;");
            ++_position;
        }
    }
}

void MarkupLimiter::takeTag()
{
    if (_source.size() > _position + 1 && _source.at(_position + 1) == u'!') {
        skipComment();
        return;
    }
    const qsizetype begin = _position + 1;
    qsizetype end = begin;
    while (end < _source.size() && _source.at(end) != u'>' && _source.at(end) != u'<')
        ++end;
    const bool isClosed = end < _source.size() && _source.at(end) == u'>';
    _position = isClosed ? end + 1 : end;

    QStringView content = QStringView(_source).sliced(begin, end - begin).trimmed();
    Tag tag;
    if (content.startsWith(u'/')) {
        tag.closes = true;
        content = content.sliced(1).trimmed();
    }
    const auto nameEnd = std::find_if_not(content.begin(), content.end(),
                                          [](QChar c) { return c.isLetterOrNumber(); });
    const qsizetype nameSize = nameEnd - content.begin();
    tag.name = content.first(nameSize).toString().toLower();
    tag.attributes = content.sliced(nameSize);
    if (!isClosed || !areWellFormed(tag.attributes))
        tag.attributes = {};

    if (tag.name.isEmpty())
        return;
    if (tag.closes)
        close(tag.name);
    else if (tag.name == QLatin1String("style") || tag.name == QLatin1String("title"))
        skipHiddenElement(tag.name);
    else if (tag.name != QLatin1String("img"))
        open(tag);
}

void MarkupLimiter::skipComment()
{
    const bool isComment = QStringView(_source).sliced(_position).startsWith(QLatin1String("<!--"));
    const QLatin1String last(isComment ? "-->" : ">");
    const qsizetype end = _source.indexOf(last, _position);
    _position = end < 0 ? _source.size() : end + last.size();
}

void MarkupLimiter::skipHiddenElement(const QString& name)
{
    const qsizetype end =
        _source.indexOf(QLatin1String("</") + name, _position, Qt::CaseInsensitive);
    const qsizetype closed = end < 0 ? -1 : _source.indexOf(u'>', end);
    _position = closed < 0 ? _source.size() : closed + 1;
}

void MarkupLimiter::write(const Tag& tag)
{
    _result += u'<' + tag.name;
    _result += tag.attributes;
    _result += u'>';
}

MarkupLimiter::Element* MarkupLimiter::innermostTable()
{
    const auto table = std::find_if(_open.rbegin(), _open.rend(), [](const Element& element) {
        return element.name == QLatin1String("table");
    });
    return table == _open.rend() ? nullptr : &*table;
}

void MarkupLimiter::open(const Tag& tag)
{
    if (isFlat(tag.name)) {
        write(tag);
    } else if (isTablePart(tag.name)) {
        openCell(tag);
    } else {
        const bool isTable = tag.name == QLatin1String("table");
        if (_open.size() >= MaxDepth || (isTable && _tables >= MaxTableDepth))
            return;
        if (isTable)
            ++_tables;
        _open.push_back({tag.name});
        write(isTable && !areModest(tag.attributes) ? Tag{tag.name, {}} : tag);
    }
}

void MarkupLimiter::openCell(const Tag& tag)
{
    Element* const table = innermostTable();
    if (table == nullptr)
        return;
    if (tag.name == QLatin1String("tr")) {
        if (_rows >= MaxRows)
            return;
        ++_rows;
        table->columns = 0;
    }
    Tag written = tag;
    if (!areModest(tag.attributes))
        written.attributes = {};
    if (isCell(tag.name)) {
        const int span = largestSpan(tag.attributes);
        if (span > MaxColumns)
            written.attributes = {};
        table->columns += span > MaxColumns ? 1 : span;
        if (table->columns > MaxColumns || _rows >= MaxRows)
            return;
    }
    closeAbove(static_cast<std::size_t>(table - _open.data()) + 1);
    write(written);
}

void MarkupLimiter::close(const QString& name)
{
    if (isFlat(name)) {
        closeInline();
        _result += QLatin1String("</") + name + u'>';
        return;
    }
    if (isTablePart(name)) {
        // The next part of the table closes this one.
        if (const Element* table = innermostTable())
            closeAbove(static_cast<std::size_t>(table - _open.data()) + 1);
        return;
    }
    for (std::size_t depth = _open.size(); depth > 0; --depth) {
        const QString& open = _open[depth - 1].name;
        if (open == name) {
            closeAbove(depth - 1);
            return;
        }
        // A cell's contents end nothing outside of their table.
        if (open == QLatin1String("table"))
            return;
    }
}

/// Closes elements until only the `depth` outermost are open.
void MarkupLimiter::closeAbove(std::size_t depth)
{
    while (_open.size() > depth) {
        const QString name = _open.back().name;
        if (name == QLatin1String("table"))
            --_tables;
        _result += QLatin1String("</") + name + u'>';
        _open.pop_back();
    }
}

/// The end of a paragraph ends the elements that lie within the line.
void MarkupLimiter::closeInline()
{
    const auto block = std::find_if(_open.rbegin(), _open.rend(),
                                    [](const Element& element) { return isBlock(element.name); });
    closeAbove(static_cast<std::size_t>(_open.rend() - block));
}

} // namespace teskel
