// SPDX-License-Identifier: MIT
#include "widgets/listbox/listboxlayouter.h"

#include <algorithm>

namespace teskel
{

namespace
{
int quotientUp(int number, int divisor)
{
    return (number + divisor - 1) / qMax(1, divisor);
}

std::vector<int> measured(int count, const ListBoxLayouter::Measure& measure)
{
    std::vector<int> sizes(static_cast<std::size_t>(count));
    for (int index = 0; index < count; ++index)
        sizes[static_cast<std::size_t>(index)] = qMax(1, measure(index));
    return sizes;
}

/// The largest size in [first, last), which may reach past the end.
int largest(const std::vector<int>& sizes, int first, int last)
{
    const auto end = static_cast<std::ptrdiff_t>(qMin(last, static_cast<int>(sizes.size())));
    return first >= end ? 0 : *std::max_element(sizes.begin() + first, sizes.begin() + end);
}

int covering(const std::vector<int>& edges, int position)
{
    const auto edge = std::upper_bound(edges.begin(), edges.end(), position);
    const auto found = static_cast<int>(edge - edges.begin()) - 1;
    return qBound(0, found, qMax(0, static_cast<int>(edges.size()) - 2));
}
} // namespace

void ListBoxLayouter::layOut(const Rules& rules, int count, QSize viewport, const Measure& width,
                             const Measure& height)
{
    _count = count;
    _columnEdges = {0};
    _rowEdges = {0};
    if (count == 0)
        return;
    const std::vector<int> heights = measured(count, height);
    const bool oneColumn = rules.rowMode == Mode::Variable &&
                           (rules.columnMode == Mode::Variable ||
                            (rules.columnMode == Mode::FixedNumber && rules.columns == 1));
    const bool widthsCount = !(oneColumn && rules.cutToViewport);
    const std::vector<int> widths = widthsCount ? measured(count, width) : std::vector<int>();

    int rows = count;
    if (rules.rowMode == Mode::FixedNumber)
        rows = rules.rows;
    else if (rules.rowMode == Mode::FitToHeight)
        rows = viewport.height() / qMax(1, largest(heights, 0, count));
    else if (!oneColumn)
        rows = quotientUp(count, rules.columnMode == Mode::FixedNumber
                                     ? rules.columns
                                     : fittingColumns(rules, widths, viewport.width()));
    rows = qBound(1, rows, count);
    const int columns = quotientUp(count, rows);

    _columnEdges = columnEdges(rules, widths, rows, columns, viewport.width());
    const int uniform = rules.variableHeight ? 0 : largest(heights, 0, count);
    for (int row = 0; row < rows; ++row) {
        int rowHeight = uniform;
        if (rules.variableHeight) {
            for (int index = row; index < count; index += rows)
                rowHeight = qMax(rowHeight, heights[static_cast<std::size_t>(index)]);
        }
        _rowEdges.push_back(_rowEdges.back() + rowHeight);
    }
}

/// The most columns whose widths fit into `room`.
int ListBoxLayouter::fittingColumns(const Rules& rules, const std::vector<int>& widths,
                                    int room) const
{
    if (!rules.variableWidth)
        return qBound(1, room / qMax(1, largest(widths, 0, _count)), _count);
    const int narrowest = *std::min_element(widths.begin(), widths.end());
    int columns = qBound(1, room / narrowest, _count);
    for (; columns > 1; --columns) {
        const int rows = quotientUp(_count, columns);
        int total = 0;
        for (int first = 0; first < _count; first += rows)
            total += largest(widths, first, first + rows);
        if (total <= room)
            break;
    }
    return columns;
}

ListBoxLayouter::Edges ListBoxLayouter::columnEdges(const Rules& rules,
                                                    const std::vector<int>& widths, int rows,
                                                    int columns, int room) const
{
    Edges edges{0};
    if (widths.empty()) {
        edges.push_back(qMax(1, room));
        return edges;
    }
    const int uniform = largest(widths, 0, _count);
    for (int column = 0; column < columns; ++column) {
        const int width =
            rules.variableWidth ? largest(widths, column * rows, (column + 1) * rows) : uniform;
        edges.push_back(edges.back() + width);
    }
    // Columns that are counted, not grown with the contents, share the room that is left.
    const int spare = room - edges.back();
    if (spare > 0 && (columns == 1 || rules.rowMode == Mode::Variable)) {
        for (int column = 1; column <= columns; ++column)
            edges[static_cast<std::size_t>(column)] += spare * column / columns;
    }
    return edges;
}

QRect ListBoxLayouter::cell(int index) const
{
    if (index < 0 || index >= _count)
        return {};
    const auto row = static_cast<std::size_t>(rowOf(index));
    const auto column = static_cast<std::size_t>(columnOf(index));
    return {QPoint(_columnEdges[column], _rowEdges[row]),
            QPoint(_columnEdges[column + 1] - 1, _rowEdges[row + 1] - 1)};
}

int ListBoxLayouter::indexAt(QPoint position) const
{
    if (!QRect(QPoint(0, 0), size()).contains(position))
        return -1;
    const int index = indexOf(rowAt(position.y()), columnAt(position.x()));
    return index < _count ? index : -1;
}

int ListBoxLayouter::rowAt(int y) const
{
    return covering(_rowEdges, y);
}

int ListBoxLayouter::columnAt(int x) const
{
    return covering(_columnEdges, x);
}

int ListBoxLayouter::itemsIn(const QRect& area) const
{
    const QRect covered = area.intersected(QRect(QPoint(0, 0), size()));
    if (covered.isEmpty())
        return 0;
    const int firstRow = rowAt(covered.top());
    const int lastRow = rowAt(covered.bottom());
    int items = 0;
    for (int column = columnAt(covered.left()); column <= columnAt(covered.right()); ++column)
        items += qBound(0, _count - indexOf(firstRow, column), lastRow - firstRow + 1);
    return items;
}

} // namespace teskel
