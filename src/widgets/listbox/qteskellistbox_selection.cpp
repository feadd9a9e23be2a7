// SPDX-License-Identifier: MIT
// The current item and the selection of QTeskelListBox, and the signals that report them.
#include "widgets/listbox/listboxaccessible.h"
#include "widgets/listbox/listboxemission.h"
#include "widgets/listbox/qteskellistbox.h"

namespace
{
using Item = QTeskelListBoxItem*;

constexpr int visibleDelay = 1;
constexpr auto highlightedItem = qOverload<Item>(&QTeskelListBox::highlighted);
constexpr auto highlightedText = qOverload<const QString&>(&QTeskelListBox::highlighted);
constexpr auto highlightedIndex = qOverload<int>(&QTeskelListBox::highlighted);
constexpr auto selectedItemSignal = qOverload<Item>(&QTeskelListBox::selected);
constexpr auto selectedText = qOverload<const QString&>(&QTeskelListBox::selected);
constexpr auto selectedIndex = qOverload<int>(&QTeskelListBox::selected);
constexpr auto selectionChangedTo = qOverload<Item>(&QTeskelListBox::selectionChanged);
constexpr auto anySelectionChanged = qOverload<>(&QTeskelListBox::selectionChanged);
} // namespace

int QTeskelListBox::currentItem() const
{
    return index(_state->selection.current());
}

void QTeskelListBox::setCurrentItem(int index)
{
    setCurrentItem(item(index));
}

void QTeskelListBox::setCurrentItem(QTeskelListBoxItem* item)
{
    if (index(item) < 0 || item == _state->selection.current())
        return;
    const quint64 removals = _state->model.removals();
    teskel::ListBoxEmission emission(this, item);
    const auto change = _state->selection.makeCurrent(item);
    if (change.itemSelected)
        emission.emitSignal(selectionChangedTo, item);
    if (change.selectionChanged)
        emission.emitSignal(anySelectionChanged);
    // An item that went asks for a repaint of everything.
    if (!emission.isAlive())
        return;
    if (_state->model.stillHolds(change.previous, removals))
        updateItem(change.previous);
    updateItem(item);
    _state->visibleTimer->start(visibleDelay);
    emitHighlighted(emission, item);
    if (emission.isAlive() && change.itemSelected)
        teskel::ListBoxAccessible::announceSelected(this, index(item));
}

void QTeskelListBox::setSelected(int index, bool select)
{
    setSelected(item(index), select);
}

void QTeskelListBox::setSelected(QTeskelListBoxItem* item, bool select)
{
    if (index(item) < 0)
        return;
    teskel::ListBoxEmission emission(this, item);
    const auto change = _state->selection.select(item, select);
    if (!change.selectionChanged)
        return;
    updateItem(change.previous);
    updateItem(item);
    if (change.itemSelected)
        emission.emitSignal(selectionChangedTo, item);
    emission.emitSignal(anySelectionChanged);
    if (change.currentMoved && emission.isAlive())
        emitHighlighted(emission, item);
    if (emission.isAlive() && select)
        teskel::ListBoxAccessible::announceSelected(this, index(item));
}

void QTeskelListBox::emitHighlighted(teskel::ListBoxEmission& emission, QTeskelListBoxItem* item)
{
    const int place = index(item);
    const QString text = item->text();
    emission.emitSignal(highlightedItem, item);
    if (!text.isEmpty())
        emission.emitSignal(highlightedText, text);
    emission.emitSignal(highlightedIndex, place);
    emission.emitSignal(&QTeskelListBox::currentChanged, item);
    if (emission.isAlive())
        teskel::ListBoxAccessible::announceCurrent(this, index(item));
}

void QTeskelListBox::emitSelected(teskel::ListBoxEmission& emission, QTeskelListBoxItem* item)
{
    const QString text = item->text();
    emission.emitSignal(selectedIndex, index(item));
    emission.emitSignal(selectedItemSignal, item);
    if (!text.isEmpty())
        emission.emitSignal(selectedText, text);
}

QTeskelListBox::SelectionMode QTeskelListBox::selectionMode() const
{
    return _state->selection.mode();
}

void QTeskelListBox::setSelectionMode(SelectionMode mode)
{
    afterSelectionSweep(_state->selection.setMode(mode));
}

bool QTeskelListBox::isMultiSelection() const
{
    return selectionMode() == Multi || selectionMode() == Extended;
}

bool QTeskelListBox::isSelected(int index) const
{
    return isSelected(item(index));
}

bool QTeskelListBox::isSelected(const QTeskelListBoxItem* item) const
{
    return index(item) >= 0 && item->selected();
}

QTeskelListBoxItem* QTeskelListBox::selectedItem() const
{
    return _state->model.firstSelected();
}

void QTeskelListBox::clearSelection()
{
    afterSelectionSweep(_state->selection.clear());
}

void QTeskelListBox::selectAll(bool select)
{
    afterSelectionSweep(_state->selection.selectAll(select));
}

void QTeskelListBox::invertSelection()
{
    afterSelectionSweep(_state->selection.invert());
}

void QTeskelListBox::afterSelectionSweep(bool changed)
{
    if (!changed)
        return;
    triggerUpdate(false);
    teskel::ListBoxAccessible::announceSelection(this);
    emit selectionChanged();
}
