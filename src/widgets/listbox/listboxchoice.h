// SPDX-License-Identifier: MIT
#pragma once

#include <Qt>

class QTeskelListBoxItem;

namespace teskel
{

class ListBoxActions;
class ListBoxModel;
class ListBoxSelection;

/// Turns a person's choice of an item, by key, pointer or assistive technology, into the current
/// item and the selection that the selection mode wants.
///
/// Each runs slots, which may remove items or delete the list box, and this with it.
class ListBoxChoice
{
public:
    ListBoxChoice(const ListBoxModel& model, ListBoxSelection& selection, ListBoxActions& actions)
        : _model(model)
        , _selection(selection)
        , _actions(actions)
    {
    }

    void press(QTeskelListBoxItem* item, Qt::KeyboardModifiers modifiers);
    /// Moves the current item to `item` and takes the selection along.
    void moveTo(QTeskelListBoxItem* item, Qt::KeyboardModifiers modifiers);
    /// Makes the first item current and selects it; false when it or the list box is gone then.
    bool takeFirst();

private:
    const ListBoxModel& _model;
    ListBoxSelection& _selection;
    ListBoxActions& _actions;
};

} // namespace teskel
