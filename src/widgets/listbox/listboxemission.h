// SPDX-License-Identifier: MIT
#pragma once

#include "widgets/listbox/listboxstate.h"

#include <QPointer>

#include <utility>

namespace teskel
{

/// Emits several signals about one item and stops when a slot removed the item or the list box.
class ListBoxEmission
{
public:
    /// @param item may be null: then only the list box must live on
    ListBoxEmission(QTeskelListBox* list, QTeskelListBoxItem* item)
        : _list(list)
        , _item(item)
        , _removals(list->_state->model.removals())
    {
    }

    bool isAlive() const
    {
        return _list && (_item == nullptr || _list->_state->model.stillHolds(_item, _removals));
    }

    template<typename Signal, typename... Arguments>
    ListBoxEmission& emitSignal(Signal signal, Arguments&&... arguments)
    {
        if (isAlive())
            (_list.data()->*signal)(std::forward<Arguments>(arguments)...);
        return *this;
    }

private:
    QPointer<QTeskelListBox> _list;
    QTeskelListBoxItem* _item;
    quint64 _removals;
};

} // namespace teskel
