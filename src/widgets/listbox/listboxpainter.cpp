// SPDX-License-Identifier: MIT
#include "widgets/listbox/listboxpainter.h"

#include "widgets/listbox/listboxgrid.h"
#include "widgets/listbox/listboxmodel.h"
#include "widgets/listbox/listboxselection.h"
#include "widgets/listbox/qteskellistboxitem.h"
#include "widgets/scrolling/qteskelscrollview.h"

#include <QPainter>
#include <QStyle>
#include <QStyleOptionFocusRect>

namespace teskel
{

void ListBoxPainter::paintCells(QPainter* painter, const QRect& clip,
                                const std::function<void(int, int)>& paintCell) const
{
    const ListBoxLayouter& grid = _grid.layouter();
    if (grid.count() == 0)
        return;
    for (int column = grid.columnAt(clip.left()); column <= grid.columnAt(clip.right()); ++column) {
        for (int row = grid.rowAt(clip.top()); row <= grid.rowAt(clip.bottom()); ++row) {
            const QRect cell = grid.cell(grid.indexOf(row, column));
            if (!cell.isValid())
                continue;
            painter->save();
            painter->translate(cell.topLeft());
            paintCell(row, column);
            painter->restore();
        }
    }
}

/// The viewport has filled the cell with the base colour already.
void ListBoxPainter::paintCell(QPainter* painter, int row, int column) const
{
    const ListBoxLayouter& grid = _grid.lastLayout();
    const int index = grid.indexOf(row, column);
    QTeskelListBoxItem* const item = _model.item(index);
    if (item == nullptr)
        return;
    const QPalette& colours = _view.palette();
    const QRect cell(QPoint(0, 0), grid.cell(index).size());
    painter->setPen(colours.color(QPalette::Text));
    if (item->selected()) {
        const int width =
            grid.columns() > 1 ? qMin(cell.width(), item->width(_model.owner())) : cell.width();
        if (item->customHighlighting())
            painter->fillRect(cell, colours.brush(QPalette::Base));
        else
            painter->fillRect(0, 0, width, cell.height(), colours.brush(QPalette::Highlight));
        painter->setPen(colours.color(QPalette::HighlightedText));
        painter->setBackground(colours.brush(QPalette::Highlight));
    }
    item->paint(painter);
    if (item == _selection.current() && _view.hasFocus() && !item->customHighlighting()) {
        QStyleOptionFocusRect option;
        option.initFrom(&_view);
        option.rect = cell;
        // Else some styles draw it only after the first Tab.
        option.state |= QStyle::State_KeyboardFocusChange;
        option.backgroundColor =
            colours.color(item->selected() ? QPalette::Highlight : QPalette::Base);
        _view.style()->drawPrimitive(QStyle::PE_FrameFocusRect, &option, painter, &_view);
    }
}

} // namespace teskel
