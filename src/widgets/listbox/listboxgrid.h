// SPDX-License-Identifier: MIT
#pragma once

#include "widgets/listbox/listboxlayouter.h"

class QTeskelListBoxItem;
class QTeskelScrollView;
class QTimer;

namespace teskel
{

class ListBoxModel;

/// Keeps the grid of a list box in step with its items and its viewport, and makes one layout and
/// one repaint of any number of wishes for them.
///
/// Rectangles of items and positions of the pointer count within the viewport.
class ListBoxGrid
{
public:
    using Mode = ListBoxLayoutMode;

    ListBoxGrid(QTeskelScrollView& view, const ListBoxModel& model);

    const ListBoxLayouter::Rules& rules() const { return _rules; }
    void setColumnMode(Mode mode);
    void setColumns(int columns);
    void setRowMode(Mode mode);
    void setRows(int rows);
    void setVariableWidth(bool variable);
    void setVariableHeight(bool variable);

    /// The grid, brought up to date. Touches no widget, so that it may be asked for while painting.
    const ListBoxLayouter& layouter() const;
    /// The grid as it was last.
    const ListBoxLayouter& lastLayout() const { return _layouter; }
    QTeskelListBoxItem* itemAt(QPoint position) const;
    /// Invalid for an item of another list.
    QRect rectOf(const QTeskelListBoxItem* item) const;
    bool isInView(const QTeskelListBoxItem* item) const;
    /// Items of which at least a part is in view.
    int itemsInView() const;
    /// The index of the first item in view, -1 in an empty list.
    int topIndex() const;
    int widestItem() const;
    QSize sizeHint() const;

    /// Gives the contents the size of the grid. Smaller contents may scroll; false when a slot has
    /// deleted the list box then.
    bool fitContents();
    /// Scroll, if they must, to the item at the index; an index that does not exist is ignored.
    void showAtTop(int index);
    void showAtBottom(int index);
    void ensureVisible(int index);

    void setLayoutNeeded() { _layoutNeeded = true; }
    /// Asks for one repaint, and for a layout first when `doLayout`, when control returns to the
    /// event loop.
    void triggerUpdate(bool doLayout);
    /// Repaints at the next occasion and lays out at once.
    void refresh();
    /// Repaints one item unless all are going to be.
    void updateItem(const QTeskelListBoxItem* item);
    /// Tells that the viewport is being painted now.
    void setPainted() { _paintPending = false; }

private:
    void layOutIn(QSize room) const;
    void updateTimeout();

    QTeskelScrollView& _view;
    const ListBoxModel& _model;
    QTimer* _updateTimer;
    mutable ListBoxLayouter _layouter;
    mutable ListBoxLayouter::Rules _rules;
    mutable bool _layoutNeeded = true;
    /// The contents' size has not been given the grid's.
    mutable bool _sizeNeeded = true;
    /// The whole viewport waits for a repaint.
    bool _paintPending = false;
};

} // namespace teskel
