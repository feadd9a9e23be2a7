// SPDX-License-Identifier: MIT
#pragma once

#include <functional>

class QPainter;
class QRect;
class QTeskelScrollView;

namespace teskel
{

class ListBoxGrid;
class ListBoxModel;
class ListBoxSelection;

/// Paints the cells of a list box: background, item and focus rectangle.
class ListBoxPainter
{
public:
    ListBoxPainter(const QTeskelScrollView& view, const ListBoxModel& model,
                   const ListBoxSelection& selection, const ListBoxGrid& grid)
        : _view(view)
        , _model(model)
        , _selection(selection)
        , _grid(grid)
    {
    }

    /// Calls `paintCell` with row and column of each cell in a rectangle of the contents; the
    /// painter's origin is the cell's upper left corner then.
    void paintCells(QPainter* painter, const QRect& clip,
                    const std::function<void(int, int)>& paintCell) const;
    void paintCell(QPainter* painter, int row, int column) const;

private:
    const QTeskelScrollView& _view;
    const ListBoxModel& _model;
    const ListBoxSelection& _selection;
    const ListBoxGrid& _grid;
};

} // namespace teskel
