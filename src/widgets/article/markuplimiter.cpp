// SPDX-License-Identifier: MIT
#include "widgets/article/markuplimiter.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace teskel
{

using Kind = MarkupTree::Kind;
using Token = MarkupTokenizer::Token;

namespace
{
/// What reading a style sheet costs beside its text.
constexpr qint64 styleSheetOverhead = 16;

/// The part of a text that the document reads: editors mark what they put on the clipboard.
QStringView fragmentOf(QStringView markup)
{
    const qsizetype begin = markup.indexOf("<!--StartFragment-->"_L1);
    if (begin < 0)
        return markup;
    const qsizetype end = markup.indexOf("<!--EndFragment-->"_L1);
    return begin < end ? markup.sliced(begin, end - begin) : markup.sliced(begin);
}
} // namespace

bool MarkupLimiter::isBeyondLimits(const QString& markup)
{
    return !MarkupLimiter().isWithin(fragmentOf(markup));
}

const MarkupTree::Node& MarkupLimiter::node(int index) const
{
    return _tree.nodes()[static_cast<std::size_t>(index)];
}

bool MarkupLimiter::isWithin(QStringView markup)
{
    MarkupTokenizer tokens(markup);
    for (Token token = tokens.next(); token != Token::End; token = tokens.next()) {
        bool isWithin = true;
        if (token == Token::OpeningTag) {
            isWithin = takeOpeningTag(tokens);
        } else if (token == Token::ClosingTag) {
            isWithin = takeClosingTag(tokens.name());
        } else {
            _tree.addText(tokens.text());
            _characters += tokens.text().size();
            if (_tree.isInStyleSheet())
                _styleSheet += tokens.text();
        }
        if (!isWithin)
            return false;
    }
    const auto elements = static_cast<qint64>(_tree.nodes().size());
    return _lengths.extent(_cells, elements, _characters) <= maxExtent && !_lengths.hasGradient() &&
           (_grids.isEmpty() || !_lengths.misplacesCells());
}

bool MarkupLimiter::takeOpeningTag(const MarkupTokenizer& tag)
{
    for (const MarkupTokenizer::Attribute& attribute : tag.attributes())
        _lengths.addAttribute(attribute.name, attribute.value);
    _styleSheet.clear();

    auto index = static_cast<int>(_tree.nodes().size());
    if (!_tree.open(tag.name(), tag.isSelfClosed()) || !readSpans(tag))
        return false;
    for (; index < static_cast<int>(_tree.nodes().size()); ++index) {
        if (!takeElement(index))
            return false;
    }
    return true;
}

/// A style sheet is read at every end tag that follows its text, whether or not it is its own.
bool MarkupLimiter::takeClosingTag(const QString& name)
{
    if (_tree.isInStyleSheet()) {
        _lengths.addStyleSheet(_styleSheet);
        _styleSize += _styleSheet.size() + styleSheetOverhead;
    }
    return _tree.close(name) && _styleSize <= maxStyleSheet;
}

bool MarkupLimiter::takeElement(int index)
{
    const MarkupTree::Node& element = node(index);
    _styleWork += element.depth * _styleSize;
    if (element.depth > maxDepth || _styleWork > maxStyleWork)
        return false;
    switch (element.kind) {
    case Kind::Picture:
        return ++_pictures <= maxPictures;
    case Kind::Table:
        return takeTable(index);
    case Kind::Row:
        return takeRow(index);
    case Kind::Cell:
        return takeCell(index);
    default:
        return true;
    }
}

/// The document puts a table that follows another within a table, but outside of its cells, into
/// that other one, and ends the table around a hidden one.
bool MarkupLimiter::takeTable(int index)
{
    int around = node(index).parent;
    while (around != 0 && node(around).kind != Kind::Table && node(around).kind != Kind::Cell)
        around = node(around).parent;
    if (node(around).kind == Kind::Table)
        ++_looseTables;
    const int depth = _grids.value(tableAround(index)).depth + 1;
    _grids.insert(index, {depth});
    return !node(index).isHidden && depth + _looseTables <= maxTableDepth;
}

bool MarkupLimiter::takeRow(int index)
{
    const int table = tableAround(index);
    Grid& grid = _grids[table];
    ++grid.rows;
    _cells += grid.columns + grid.hanging;
    return _cells <= maxCells;
}

bool MarkupLimiter::takeCell(int index)
{
    // A heading may stand outside of any table.
    const int row = node(index).parent;
    if (row == 0)
        return true;
    qint64& columns = _columns[row];
    Grid& grid = _grids[tableAround(row)];
    const qint64 before = grid.rows * (grid.columns + grid.hanging);
    columns += _columnSpan;
    grid.columns = std::max(grid.columns, columns);
    if (_rowSpan > 1)
        grid.hanging += _columnSpan;
    _cells += grid.rows * (grid.columns + grid.hanging) - before;
    // What a cell spans costs on its own, even where there is no such row.
    if (_columnSpan > 1 || _rowSpan > 1)
        _cells += _columnSpan * _rowSpan;
    return _cells <= maxCells;
}

/// @return false if a span cannot be told
bool MarkupLimiter::readSpans(const MarkupTokenizer& tag)
{
    _columnSpan = 1;
    _rowSpan = 1;
    if (tag.name() != "td"_L1 && tag.name() != "th"_L1)
        return true;
    for (const MarkupTokenizer::Attribute& attribute : tag.attributes()) {
        const QString name = attribute.name.toString().toLower();
        const bool isColumnSpan = name == "colspan"_L1;
        if (MarkupTokenizer::mayHoldMarkup(name))
            return false;
        if (!isColumnSpan && name != "rowspan"_L1)
            continue;
        if (MarkupTokenizer::mayHoldMarkup(attribute.value))
            return false;
        qint64& span = isColumnSpan ? _columnSpan : _rowSpan;
        span = std::max<qint64>(span, attribute.value.toInt());
    }
    return true;
}

/// The innermost table that an element lies in; the document's own for none.
int MarkupLimiter::tableAround(int index) const
{
    do
        index = node(index).parent;
    while (index != 0 && node(index).kind != Kind::Table);
    return index;
}

} // namespace teskel
