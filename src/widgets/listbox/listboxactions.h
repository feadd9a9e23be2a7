// SPDX-License-Identifier: MIT
#pragma once

class QPoint;
class QTeskelListBoxItem;

namespace teskel
{

/// What the parts of a list box ask of it: the operations that a derived list box may replace, and
/// its signals.
///
/// Each runs slots, which may remove items or delete the list box.
class ListBoxActions
{
public:
    virtual void setCurrentItem(QTeskelListBoxItem* item) = 0;
    virtual void setSelected(QTeskelListBoxItem* item, bool select) = 0;
    virtual void clearSelection() = 0;
    virtual void selectAll(bool select) = 0;
    virtual void setTopItem(int index) = 0;
    virtual void setBottomItem(int index) = 0;

    /// The selection of any number of items is different.
    virtual void reportSelection() = 0;
    /// An item was chosen, by Return or a double click.
    virtual void reportSelected(QTeskelListBoxItem* item) = 0;
    virtual void reportReturnPressed(QTeskelListBoxItem* item) = 0;
    virtual void reportDoubleClicked(QTeskelListBoxItem* item) = 0;
    /// @param item     null beside the items
    /// @param position on the screen
    virtual void reportPressed(int button, QTeskelListBoxItem* item, const QPoint& position) = 0;
    virtual void reportClicked(int button, QTeskelListBoxItem* item, const QPoint& position) = 0;
    /// The pointer came over another item, or, null, beside the items.
    virtual void reportHovered(QTeskelListBoxItem* item) = 0;

protected:
    ~ListBoxActions() = default;
};

} // namespace teskel
