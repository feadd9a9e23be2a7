// SPDX-License-Identifier: MIT
#pragma once

#include "widgets/listbox/listboxenums.h"

#include <QRect>

#include <functional>
#include <vector>

namespace teskel
{

/// Computes the grid of a list box: columns filled from top to bottom, one after the other.
///
/// Knows counts and sizes only. All sizes are pixels, all positions count within the contents.
class ListBoxLayouter
{
public:
    using Mode = ListBoxLayoutMode;
    /// Gives one measure of the item at an index.
    using Measure = std::function<int(int)>;

    struct Rules {
        Mode columnMode = Mode::FixedNumber;
        Mode rowMode = Mode::Variable;
        int columns = 1;
        int rows = 1;
        bool variableWidth = false;
        bool variableHeight = true;
        /// One column is as wide as the viewport whatever it holds; widths are not asked for.
        bool cutToViewport = false;
    };

    void layOut(const Rules& rules, int count, QSize viewport, const Measure& width,
                const Measure& height);

    int count() const { return _count; }
    int columns() const { return static_cast<int>(_columnEdges.size()) - 1; }
    int rows() const { return static_cast<int>(_rowEdges.size()) - 1; }
    QSize size() const { return {_columnEdges.back(), _rowEdges.back()}; }

    int rowOf(int index) const { return index % qMax(1, rows()); }
    int columnOf(int index) const { return index / qMax(1, rows()); }
    int indexOf(int row, int column) const { return column * rows() + row; }
    /// The cell of an item, invalid for an index that was not laid out.
    QRect cell(int index) const;
    /// The index of the item at a position, -1 when there is none.
    int indexAt(QPoint position) const;
    /// The row or column that covers a coordinate, cut to the first and the last.
    int rowAt(int y) const;
    int columnAt(int x) const;
    /// Items of which at least a part lies in `area`.
    int itemsIn(const QRect& area) const;

private:
    using Edges = std::vector<int>;
    int fittingColumns(const Rules& rules, const std::vector<int>& widths, int room) const;
    Edges columnEdges(const Rules& rules, const std::vector<int>& widths, int rows, int columns,
                      int room) const;

    int _count = 0;
    Edges _columnEdges{0};
    Edges _rowEdges{0};
};

} // namespace teskel
