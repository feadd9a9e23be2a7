// SPDX-License-Identifier: MIT
#include "widgets/listbox/listboxaccessible.h"

#include "widgets/listbox/listboxemission.h"
#include "widgets/listbox/qteskellistbox.h"

namespace teskel
{

namespace
{
QAccessibleInterface* makeInterface(const QString& className, QObject* object)
{
    if (className != QLatin1String("QTeskelListBox"))
        return nullptr;
    auto* list = qobject_cast<QTeskelListBox*>(object);
    return list == nullptr ? nullptr : new ListBoxAccessible(list);
}

ListBoxAccessible::Reporter testReporter = nullptr;

/// @param index the item's index, -1 for the list itself
void announce(QTeskelListBox* list, QAccessible::Event type, int index)
{
    if (testReporter == nullptr && !QAccessible::isActive())
        return;
    QAccessibleEvent event(list, type);
    event.setChild(index);
    if (testReporter != nullptr)
        testReporter(&event);
    else
        QAccessible::updateAccessibility(&event);
}
} // namespace

void ListBoxAccessible::install()
{
    static const bool installed = [] {
        QAccessible::installFactory(makeInterface);
        return true;
    }();
    Q_UNUSED(installed)
}

void ListBoxAccessible::setReporter(Reporter reporter)
{
    testReporter = reporter;
}

void ListBoxAccessible::announceCurrent(QTeskelListBox* list, int index)
{
    announce(list, list->hasFocus() ? QAccessible::Focus : QAccessible::ActiveDescendantChanged,
             index);
}

void ListBoxAccessible::announceSelected(QTeskelListBox* list, int index)
{
    announce(list, QAccessible::Selection, index);
}

void ListBoxAccessible::announceText(QTeskelListBox* list, int index)
{
    announce(list, QAccessible::NameChanged, index);
}

void ListBoxAccessible::announceSelection(QTeskelListBox* list)
{
    announce(list, QAccessible::SelectionWithin, -1);
}

ListBoxAccessible::ListBoxAccessible(QTeskelListBox* list)
    : QAccessibleWidget(list, QAccessible::List)
{
}

QTeskelListBox* ListBoxAccessible::list() const
{
    return static_cast<QTeskelListBox*>(object());
}

int ListBoxAccessible::childCount() const
{
    return list()->count();
}

QAccessibleInterface* ListBoxAccessible::child(int index) const
{
    QTeskelListBoxItem* const item = list()->item(index);
    if (item == nullptr)
        return nullptr;
    if (item->_accessibleId == 0)
        item->_accessibleId =
            QAccessible::registerAccessibleInterface(new ListBoxItemAccessible(item));
    return QAccessible::accessibleInterface(item->_accessibleId);
}

QAccessibleInterface* ListBoxAccessible::childAt(int x, int y) const
{
    const QPoint position = list()->viewport()->mapFromGlobal(QPoint(x, y));
    if (!list()->viewport()->rect().contains(position))
        return nullptr;
    return child(list()->index(list()->itemAt(position)));
}

QAccessibleInterface* ListBoxAccessible::focusChild() const
{
    return list()->hasFocus() ? child(list()->currentItem()) : nullptr;
}

int ListBoxAccessible::indexOfChild(const QAccessibleInterface* child) const
{
    const auto* item = dynamic_cast<const ListBoxItemAccessible*>(child);
    return item == nullptr ? -1 : list()->index(item->item());
}

QAccessible::State ListBoxAccessible::state() const
{
    QAccessible::State state = QAccessibleWidget::state();
    const auto mode = list()->selectionMode();
    state.multiSelectable = mode == QTeskelListBox::Multi || mode == QTeskelListBox::Extended;
    state.extSelectable = mode == QTeskelListBox::Extended;
    return state;
}

QWindow* ListBoxItemAccessible::window() const
{
    return _item->listBox()->window()->windowHandle();
}

QAccessibleInterface* ListBoxItemAccessible::parent() const
{
    return QAccessible::queryAccessibleInterface(_item->listBox());
}

QString ListBoxItemAccessible::text(QAccessible::Text kind) const
{
    return kind == QAccessible::Name ? _item->text() : QString();
}

QRect ListBoxItemAccessible::rect() const
{
    const QTeskelListBox* list = _item->listBox();
    const QRect cell = list->itemRect(_item);
    return {list->viewport()->mapToGlobal(cell.topLeft()), cell.size()};
}

QAccessible::State ListBoxItemAccessible::state() const
{
    const QTeskelListBox* list = _item->listBox();
    QAccessible::State state;
    state.selectable =
        _item->isSelectable() && list->selectionMode() != QTeskelListBox::NoSelection;
    state.selected = _item->selected();
    state.focusable = list->focusPolicy() != Qt::NoFocus;
    state.focused = _item->current() && list->hasFocus();
    state.active = _item->current();
    state.disabled = !list->isEnabled();
    state.invisible = !list->isVisible();
    state.offscreen = !list->itemVisible(_item);
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
    if (_item->listBox()->isMultiSelection() && _item->isSelectable())
        names << toggleAction();
    return names;
}

/// Pressing does what a tap does; toggling leaves the other items as they are.
void ListBoxItemAccessible::doAction(const QString& name)
{
    QTeskelListBox* const list = _item->listBox();
    if (!list->isEnabled() || !actionNames().contains(name))
        return;
    if (name == toggleAction()) {
        list->setSelected(_item, !_item->selected());
        return;
    }
    // A slot may remove the item, and this with it.
    const ListBoxEmission emission(list, _item);
    list->selectByPress(_item, Qt::NoModifier);
    if (emission.isAlive())
        list->ensureCurrentVisible();
}

} // namespace teskel
