// SPDX-License-Identifier: MIT
#pragma once

#include "widgets/listbox/listboxenums.h"

class QTeskelListBoxItem;

namespace teskel
{

class ListBoxModel;

/// Decides which items are selected and which one is current, by the rules of the selection mode.
///
/// Changes the items' flags and tells what changed; emitting and painting are the caller's.
class ListBoxSelection
{
public:
    /// What an operation did.
    struct Change {
        /// The item that was current before, when another one is now.
        QTeskelListBoxItem* previous = nullptr;
        bool currentMoved = false;
        /// The given item became selected in single mode.
        bool itemSelected = false;
        /// Some item's selection is different.
        bool selectionChanged = false;
    };
    using Mode = ListBoxSelectionMode;

    explicit ListBoxSelection(ListBoxModel& model)
        : _model(model)
    {
    }

    Mode mode() const { return _mode; }
    /// Whether several items can be selected at a time.
    bool holdsSeveral() const { return _mode == Mode::Multi || _mode == Mode::Extended; }
    /// Drops the selections that the new mode does not allow; true when there were some.
    bool setMode(Mode mode);
    QTeskelListBoxItem* current() const { return _current; }

    /// Makes an item of the model current; in single mode it becomes the selected one as well.
    Change makeCurrent(QTeskelListBoxItem* item);
    /// Selects or deselects; in single mode a selected item becomes current.
    Change select(QTeskelListBoxItem* item, bool selected);
    /// Selects or deselects all items in the modes of several selected items.
    bool selectAll(bool selected);
    bool invert();
    /// Deselects everything.
    bool clear();
    /// Selects the items between the anchor and `item` and, when `alone`, deselects all others.
    bool selectFromAnchor(QTeskelListBoxItem* item, bool alone);
    /// Selects `item` and deselects all others.
    bool selectOnly(QTeskelListBoxItem* item);
    void setAnchor(QTeskelListBoxItem* item) { _anchor = item; }
    /// Lets go of an item that leaves the model.
    void forget(const QTeskelListBoxItem* item);

private:
    bool selectRange(int first, int last, bool alone);

    ListBoxModel& _model;
    QTeskelListBoxItem* _current = nullptr;
    QTeskelListBoxItem* _anchor = nullptr;
    Mode _mode = Mode::Single;
};

} // namespace teskel
