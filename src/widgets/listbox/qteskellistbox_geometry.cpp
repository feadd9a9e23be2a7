// SPDX-License-Identifier: MIT
// Layout and painting of QTeskelListBox.
#include "widgets/listbox/listboxstate.h"
#include "widgets/listbox/qteskellistbox.h"

#include <QEvent>
#include <QPainter>
#include <QPointer>
#include <QStyle>
#include <QStyleOptionFocusRect>

namespace
{
constexpr int hintedRows = 10;
}

QTeskelListBox::LayoutMode QTeskelListBox::columnMode() const
{
    return _state->rules.columnMode;
}

QTeskelListBox::LayoutMode QTeskelListBox::rowMode() const
{
    return _state->rules.rowMode;
}

void QTeskelListBox::setColumnMode(LayoutMode mode)
{
    _state->rules.columnMode = mode;
    _state->rules.rowMode = Variable;
    triggerUpdate(true);
}

void QTeskelListBox::setColumnMode(int columns)
{
    _state->rules.columns = qMax(1, columns);
    setColumnMode(FixedNumber);
}

void QTeskelListBox::setRowMode(LayoutMode mode)
{
    _state->rules.rowMode = mode;
    _state->rules.columnMode = Variable;
    triggerUpdate(true);
}

void QTeskelListBox::setRowMode(int rows)
{
    _state->rules.rows = qMax(1, rows);
    setRowMode(FixedNumber);
}

int QTeskelListBox::numColumns() const
{
    layOutGrid();
    return _state->layouter.columns();
}

int QTeskelListBox::numRows() const
{
    layOutGrid();
    return _state->layouter.rows();
}

bool QTeskelListBox::variableWidth() const
{
    return _state->rules.variableWidth;
}

void QTeskelListBox::setVariableWidth(bool variable)
{
    _state->rules.variableWidth = variable;
    triggerUpdate(true);
}

bool QTeskelListBox::variableHeight() const
{
    return _state->rules.variableHeight;
}

void QTeskelListBox::setVariableHeight(bool variable)
{
    _state->rules.variableHeight = variable;
    triggerUpdate(true);
}

void QTeskelListBox::setHScrollBarMode(ScrollBarMode mode)
{
    QTeskelScrollView::setHScrollBarMode(mode);
    triggerUpdate(true);
}

int QTeskelListBox::numItemsVisible() const
{
    layOutGrid();
    return _state->layouter.itemsIn({contentsX(), contentsY(), visibleWidth(), visibleHeight()});
}

bool QTeskelListBox::itemVisible(int index) const
{
    return itemVisible(item(index));
}

bool QTeskelListBox::itemVisible(const QTeskelListBoxItem* item) const
{
    return itemRect(item).intersects(viewport()->rect());
}

int QTeskelListBox::topItem() const
{
    layOutGrid();
    const auto& grid = _state->layouter;
    return grid.count() == 0 ? -1
                             : qMin(grid.count() - 1, grid.indexOf(grid.rowAt(contentsY()),
                                                                   grid.columnAt(contentsX())));
}

void QTeskelListBox::setTopItem(int index)
{
    if (item(index) == nullptr)
        return;
    if (!layOutIfNeeded())
        return;
    const QRect cell = _state->layouter.cell(index);
    setContentsPos(numColumns() > 1 ? cell.left() : contentsX(), cell.top());
}

void QTeskelListBox::setBottomItem(int index)
{
    if (item(index) == nullptr)
        return;
    if (!layOutIfNeeded())
        return;
    const QRect cell = _state->layouter.cell(index);
    setContentsPos(numColumns() > 1 ? cell.right() + 1 - visibleWidth() : contentsX(),
                   cell.bottom() + 1 - visibleHeight());
}

int QTeskelListBox::itemHeight(int index) const
{
    layOutGrid();
    return _state->layouter.cell(index).height();
}

int QTeskelListBox::maxItemWidth() const
{
    int width = 0;
    for (int index = 0; index < count(); ++index)
        width = qMax(width, item(index)->width(this));
    return width;
}

QTeskelListBoxItem* QTeskelListBox::itemAt(QPoint position) const
{
    layOutGrid();
    return item(_state->layouter.indexAt(viewportToContents(position)));
}

QRect QTeskelListBox::itemRect(const QTeskelListBoxItem* item) const
{
    layOutGrid();
    const QRect cell = _state->layouter.cell(index(item));
    return cell.isValid() ? QRect(contentsToViewport(cell.topLeft()), cell.size()) : cell;
}

int QTeskelListBox::itemYPos(const QTeskelListBoxItem* item) const
{
    layOutGrid();
    return _state->layouter.cell(index(item)).top();
}

void QTeskelListBox::triggerUpdate(bool doLayout)
{
    _state->layoutNeeded |= doLayout;
    if (!_state->paintPending) {
        _state->paintPending = true;
        viewport()->update();
    }
    if (!_state->updateTimer->isActive())
        _state->updateTimer->start(0);
}

/// Brings the grid up to date and touches no widget, so that it may run while painting.
void QTeskelListBox::layOutGrid() const
{
    const bool cut = horizontalScrollBarPolicy() == Qt::ScrollBarAlwaysOff;
    if (!_state->layoutNeeded && _state->rules.cutToViewport == cut)
        return;
    _state->rules.cutToViewport = cut;
    // What is fitted must not hang on a bar that comes and goes with it: it is fitted to the room
    // without the bar or, when that is too small, to the room beside it.
    const QSize most = maximumViewportSize();
    if (_state->rules.rowMode == FitToHeight && hScrollBarMode() == Auto) {
        layOutIn({visibleWidth(), most.height()});
        if (_state->layouter.size().width() > most.width())
            layOutIn({visibleWidth(), most.height() - horizontalScrollBar()->sizeHint().height()});
    } else if (_state->rules.columnMode == FitToWidth && vScrollBarMode() == Auto) {
        layOutIn({most.width(), visibleHeight()});
        if (_state->layouter.size().height() > most.height())
            layOutIn({most.width() - verticalScrollBar()->sizeHint().width(), visibleHeight()});
    } else {
        layOutIn(viewport()->size());
    }
    _state->layoutNeeded = false;
    _state->sizeNeeded = true;
}

void QTeskelListBox::layOutIn(QSize room) const
{
    _state->layouter.layOut(
        _state->rules, count(), room, [this](int index) { return item(index)->width(this); },
        [this](int index) { return item(index)->height(this); });
}

/// Smaller contents may scroll; false when a slot has deleted the list box then.
bool QTeskelListBox::layOutIfNeeded()
{
    layOutGrid();
    if (!_state->sizeNeeded)
        return true;
    const QPointer<QTeskelListBox> self(this);
    _state->sizeNeeded = false;
    resizeContents(_state->layouter.size().width(), _state->layouter.size().height());
    return !self.isNull();
}

void QTeskelListBox::refreshSlot()
{
    _state->updateTimer->stop();
    // A paint event that came before the timer has shown everything already.
    if (sender() != _state->updateTimer || _state->paintPending)
        viewport()->update();
    layOutIfNeeded();
}

void QTeskelListBox::adjustItems()
{
    _state->layoutNeeded = true;
    viewport()->update();
    layOutIfNeeded();
}

void QTeskelListBox::ensureCurrentVisible()
{
    const int current = currentItem();
    if (current < 0 || !layOutIfNeeded())
        return;
    const QRect cell = _state->layouter.cell(current);
    // Rounded up: the last line of a row of odd height must not stay out of sight.
    const int ymargin = (cell.height() + 1) / 2;
    const int xmargin = numColumns() > 1 ? qMin(cell.width(), visibleWidth()) / 2 : 0;
    ensureVisible(cell.left() + xmargin, cell.top() + ymargin, xmargin, ymargin);
}

void QTeskelListBox::updateItem(const QTeskelListBoxItem* item)
{
    if (!_state->paintPending && index(item) >= 0)
        viewport()->update(itemRect(item));
}

QSize QTeskelListBox::sizeHint() const
{
    const int rowHeight = count() > 0 ? itemHeight() : fontMetrics().lineSpacing() + 2;
    const int rows = qBound(1, count(), hintedRows);
    const QSize bars(verticalScrollBar()->sizeHint().width(), 0);
    return QSize(qBound(fontMetrics().averageCharWidth() * 10, maxItemWidth(),
                        fontMetrics().averageCharWidth() * 40),
                 rows * rowHeight) +
           bars + QSize(2 * frameWidth(), 2 * frameWidth());
}

void QTeskelListBox::drawContents(QPainter* painter, const QRect& clip)
{
    _state->paintPending = false;
    layOutGrid();
    const auto& grid = _state->layouter;
    if (grid.count() == 0)
        return;
    for (int column = grid.columnAt(clip.left()); column <= grid.columnAt(clip.right()); ++column) {
        for (int row = grid.rowAt(clip.top()); row <= grid.rowAt(clip.bottom()); ++row) {
            const QRect cell = grid.cell(grid.indexOf(row, column));
            if (!cell.isValid())
                continue;
            painter->save();
            painter->translate(cell.topLeft());
            paintCell(painter, row, column);
            painter->restore();
        }
    }
}

/// The viewport has filled the cell with the base colour already.
void QTeskelListBox::paintCell(QPainter* painter, int row, int column)
{
    const auto& grid = _state->layouter;
    const int index = grid.indexOf(row, column);
    QTeskelListBoxItem* const item = this->item(index);
    if (item == nullptr)
        return;
    const QPalette& colours = palette();
    const QRect cell(QPoint(0, 0), grid.cell(index).size());
    painter->setPen(colours.color(QPalette::Text));
    if (item->selected()) {
        const int width = grid.columns() > 1 ? qMin(cell.width(), item->width(this)) : cell.width();
        if (item->customHighlighting())
            painter->fillRect(cell, colours.brush(QPalette::Base));
        else
            painter->fillRect(0, 0, width, cell.height(), colours.brush(QPalette::Highlight));
        painter->setPen(colours.color(QPalette::HighlightedText));
        painter->setBackground(colours.brush(QPalette::Highlight));
    }
    item->paint(painter);
    if (index == currentItem() && hasFocus() && !item->customHighlighting()) {
        QStyleOptionFocusRect option;
        option.initFrom(this);
        option.rect = cell;
        // Else some styles draw it only after the first Tab.
        option.state |= QStyle::State_KeyboardFocusChange;
        option.backgroundColor =
            colours.color(item->selected() ? QPalette::Highlight : QPalette::Base);
        style()->drawPrimitive(QStyle::PE_FrameFocusRect, &option, painter, this);
    }
}

void QTeskelListBox::resizeEvent(QResizeEvent* event)
{
    _state->layoutNeeded = true;
    if (layOutIfNeeded())
        QTeskelScrollView::resizeEvent(event);
}

void QTeskelListBox::showEvent(QShowEvent* event)
{
    QTeskelScrollView::showEvent(event);
    layOutIfNeeded();
}

void QTeskelListBox::changeEvent(QEvent* event)
{
    QTeskelScrollView::changeEvent(event);
    if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange)
        triggerUpdate(true);
}
