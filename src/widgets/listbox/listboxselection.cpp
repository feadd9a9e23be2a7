// SPDX-License-Identifier: MIT
#include "widgets/listbox/listboxselection.h"

#include "widgets/listbox/listboxmodel.h"
#include "widgets/listbox/qteskellistboxitem.h"

#include <utility>

namespace teskel
{

bool ListBoxSelection::setMode(Mode mode)
{
    _mode = mode;
    switch (mode) {
    case Mode::NoSelection:
        return clear();
    case Mode::Single: {
        const int kept = _current != nullptr && _current->selected() ? _model.index(_current) : -1;
        return selectRange(kept, kept, true);
    }
    default:
        return false;
    }
}

ListBoxSelection::Change ListBoxSelection::makeCurrent(QTeskelListBoxItem* item)
{
    Change change{.previous = _current, .currentMoved = true};
    _current = item;
    if (_mode == Mode::Single) {
        change.selectionChanged = ListBoxModel::mark(change.previous, false);
        change.itemSelected = item->isSelectable() && ListBoxModel::mark(item, true);
        change.selectionChanged |= change.itemSelected;
    }
    return change;
}

ListBoxSelection::Change ListBoxSelection::select(QTeskelListBoxItem* item, bool selected)
{
    Change change;
    if (_mode == Mode::NoSelection || !item->isSelectable() || item->selected() == selected)
        return change;
    if (_mode == Mode::Single && selected) {
        change.itemSelected = true;
        if (item != _current) {
            change.previous = _current;
            change.currentMoved = true;
            ListBoxModel::mark(_current, false);
            _current = item;
        }
    }
    change.selectionChanged = ListBoxModel::mark(item, selected);
    return change;
}

bool ListBoxSelection::selectRange(int first, int last, bool alone)
{
    if (first > last)
        std::swap(first, last);
    bool changed = false;
    for (int index = 0; index < _model.count(); ++index) {
        QTeskelListBoxItem* const item = _model.item(index);
        if (index >= first && index <= last)
            changed |= item->isSelectable() && ListBoxModel::mark(item, true);
        else if (alone)
            changed |= ListBoxModel::mark(item, false);
    }
    return changed;
}

bool ListBoxSelection::selectAll(bool selected)
{
    if (!holdsSeveral())
        return false;
    return selected ? selectRange(0, _model.count() - 1, false) : clear();
}

bool ListBoxSelection::invert()
{
    if (!holdsSeveral())
        return false;
    bool changed = false;
    for (int index = 0; index < _model.count(); ++index) {
        QTeskelListBoxItem* const item = _model.item(index);
        changed |= item->isSelectable() && ListBoxModel::mark(item, !item->selected());
    }
    return changed;
}

bool ListBoxSelection::clear()
{
    return selectRange(-1, -1, true);
}

bool ListBoxSelection::selectFromAnchor(QTeskelListBoxItem* item, bool alone)
{
    if (_anchor == nullptr)
        _anchor = item;
    return selectRange(_model.index(_anchor), _model.index(item), alone);
}

bool ListBoxSelection::selectOnly(QTeskelListBoxItem* item)
{
    _anchor = item;
    return selectFromAnchor(item, true);
}

void ListBoxSelection::forget(const QTeskelListBoxItem* item)
{
    if (_current == item)
        _current = nullptr;
    if (_anchor == item)
        _anchor = nullptr;
}

} // namespace teskel
