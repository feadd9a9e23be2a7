// SPDX-License-Identifier: MIT
#include "widgets/listbox/listboxchoice.h"

#include "widgets/listbox/listboxactions.h"
#include "widgets/listbox/listboxmodel.h"
#include "widgets/listbox/listboxselection.h"
#include "widgets/listbox/qteskellistboxitem.h"

namespace teskel
{

void ListBoxChoice::press(QTeskelListBoxItem* item, Qt::KeyboardModifiers modifiers)
{
    using enum ListBoxSelectionMode;
    const auto makeCurrent = [&] { _actions.setCurrentItem(item); };
    const auto toggle = [&] { _actions.setSelected(item, !item->selected()); };
    switch (_selection.mode()) {
    case Single:
        _actions.setSelected(item, true);
        break;
    case NoSelection:
        makeCurrent();
        break;
    case Multi:
        _model.watch(item).run(makeCurrent, toggle);
        break;
    case Extended:
        if ((modifiers & Qt::ControlModifier) != 0) {
            _selection.setAnchor(item);
            _model.watch(item).run(makeCurrent, toggle);
        } else {
            moveTo(item, modifiers);
        }
        break;
    }
}

void ListBoxChoice::moveTo(QTeskelListBoxItem* item, Qt::KeyboardModifiers modifiers)
{
    const ListBoxWatch watch = _model.watch(item);
    _actions.setCurrentItem(item);
    if (!watch.isAlive() || _selection.mode() != ListBoxSelectionMode::Extended)
        return;
    bool changed = false;
    if ((modifiers & Qt::ShiftModifier) != 0)
        changed = _selection.selectFromAnchor(item, true);
    else if ((modifiers & Qt::ControlModifier) == 0)
        changed = _selection.selectOnly(item);
    if (changed)
        _actions.reportSelection();
}

bool ListBoxChoice::takeFirst()
{
    return _model.watch(_model.item(0))
        .run([&] { _actions.setCurrentItem(_model.item(0)); },
             [&] { _actions.setSelected(_model.item(0), true); });
}

} // namespace teskel
