// SPDX-License-Identifier: MIT
#include "widgets/listbox/listboxaccessible.h"

#include "widgets/listbox/listboxactions.h"
#include "widgets/listbox/listboxchoice.h"
#include "widgets/listbox/listboxgrid.h"
#include "widgets/listbox/listboxmodel.h"
#include "widgets/listbox/listboxselection.h"
#include "widgets/listbox/qteskellistboxitem.h"
#include "widgets/scrolling/qteskelscrollview.h"

namespace teskel
{

namespace
{
ListBoxAccessible::Reporter testReporter = nullptr;

/// @param index the item's index, -1 for the list itself
void announce(QWidget* list, QAccessible::Event type, int index)
{
    if (!ListBoxAccessible::isHeard())
        return;
    QAccessibleEvent event(list, type);
    event.setChild(index);
    if (testReporter != nullptr)
        testReporter(&event);
    else
        QAccessible::updateAccessibility(&event);
}
} // namespace

void ListBoxAccessible::setReporter(Reporter reporter)
{
    testReporter = reporter;
}

bool ListBoxAccessible::isHeard()
{
    return testReporter != nullptr || QAccessible::isActive();
}

void ListBoxAccessible::announceCurrent(QWidget* list, int index)
{
    announce(list, list->hasFocus() ? QAccessible::Focus : QAccessible::ActiveDescendantChanged,
             index);
}

void ListBoxAccessible::announceSelected(QWidget* list, int index)
{
    announce(list, QAccessible::Selection, index);
}

void ListBoxAccessible::announceText(QWidget* list, int index)
{
    announce(list, QAccessible::NameChanged, index);
}

void ListBoxAccessible::announceSelection(QWidget* list)
{
    announce(list, QAccessible::SelectionWithin, -1);
}

ListBoxAccessible::ListBoxAccessible(const ListBoxAccessibleParts& parts)
    : QAccessibleWidget(&parts.view, QAccessible::List)
    , _parts(parts)
{
}

int ListBoxAccessible::childCount() const
{
    return _parts.model.count();
}

QAccessibleInterface* ListBoxAccessible::child(int index) const
{
    QTeskelListBoxItem* const item = _parts.model.item(index);
    if (item == nullptr)
        return nullptr;
    if (item->_accessibleId == 0)
        item->_accessibleId =
            QAccessible::registerAccessibleInterface(new ListBoxItemAccessible(_parts, item));
    return QAccessible::accessibleInterface(item->_accessibleId);
}

QAccessibleInterface* ListBoxAccessible::childAt(int x, int y) const
{
    const QWidget* const viewport = _parts.view.viewport();
    const QPoint position = viewport->mapFromGlobal(QPoint(x, y));
    if (!viewport->rect().contains(position))
        return nullptr;
    return child(_parts.model.index(_parts.grid.itemAt(position)));
}

QAccessibleInterface* ListBoxAccessible::focusChild() const
{
    return _parts.view.hasFocus() ? child(_parts.model.index(_parts.selection.current())) : nullptr;
}

int ListBoxAccessible::indexOfChild(const QAccessibleInterface* child) const
{
    const auto* item = dynamic_cast<const ListBoxItemAccessible*>(child);
    return item == nullptr ? -1 : _parts.model.index(item->item());
}

QAccessible::State ListBoxAccessible::state() const
{
    QAccessible::State state = QAccessibleWidget::state();
    state.multiSelectable = _parts.selection.holdsSeveral();
    state.extSelectable = _parts.selection.mode() == ListBoxSelectionMode::Extended;
    return state;
}

QWindow* ListBoxItemAccessible::window() const
{
    return _parts.view.window()->windowHandle();
}

QAccessibleInterface* ListBoxItemAccessible::parent() const
{
    return QAccessible::queryAccessibleInterface(&_parts.view);
}

QString ListBoxItemAccessible::text(QAccessible::Text kind) const
{
    return kind == QAccessible::Name ? _item->text() : QString();
}

QRect ListBoxItemAccessible::rect() const
{
    const QRect cell = _parts.grid.rectOf(_item);
    return {_parts.view.viewport()->mapToGlobal(cell.topLeft()), cell.size()};
}

QAccessible::State ListBoxItemAccessible::state() const
{
    const QTeskelScrollView& view = _parts.view;
    const bool isCurrent = _item == _parts.selection.current();
    QAccessible::State state;
    state.selectable =
        _item->isSelectable() && _parts.selection.mode() != ListBoxSelectionMode::NoSelection;
    state.selected = _item->selected();
    state.focusable = view.focusPolicy() != Qt::NoFocus;
    state.focused = isCurrent && view.hasFocus();
    state.active = isCurrent;
    state.disabled = !view.isEnabled();
    state.invisible = !view.isVisible();
    state.offscreen = !_parts.grid.isInView(_item);
    return state;
}

void* ListBoxItemAccessible::interface_cast(QAccessible::InterfaceType type)
{
    return type == QAccessible::ActionInterface ? static_cast<QAccessibleActionInterface*>(this)
                                                : nullptr;
}

QStringList ListBoxItemAccessible::actionNames() const
{
    QStringList names{pressAction()};
    if (_parts.selection.holdsSeveral() && _item->isSelectable())
        names << toggleAction();
    return names;
}

/// Pressing does what a tap does; toggling leaves the other items as they are.
void ListBoxItemAccessible::doAction(const QString& name)
{
    if (!_parts.view.isEnabled() || !actionNames().contains(name))
        return;
    if (name == toggleAction()) {
        _parts.actions.setSelected(_item, !_item->selected());
        return;
    }
    // A slot may remove the item, and this with it.
    const ListBoxAccessibleParts parts = _parts;
    parts.model.watch(_item).run(
        [&parts, item = _item] { parts.choice.press(item, Qt::NoModifier); },
        [&parts] { parts.grid.ensureVisible(parts.model.index(parts.selection.current())); });
}

} // namespace teskel
