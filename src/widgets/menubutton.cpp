// SPDX-License-Identifier: MIT
#include "widgets/menubutton.h"

#include <QAccessible>
#include <QAccessibleWidget>
#include <QMenu>

namespace teskel
{

namespace
{

/// The button in the accessibility tree, with its menu as the one child.
class MenuButtonAccessible : public QAccessibleWidget
{
public:
    explicit MenuButtonAccessible(MenuButton* button)
        : QAccessibleWidget(button, QAccessible::ButtonMenu)
    {
    }

    int childCount() const override { return menu() != nullptr ? 1 : 0; }

    QAccessibleInterface* child(int index) const override
    {
        return index == 0 ? QAccessible::queryAccessibleInterface(menu()) : nullptr;
    }

    int indexOfChild(const QAccessibleInterface* child) const override
    {
        return menu() != nullptr && child->object() == menu() ? 0 : -1;
    }

    QAccessible::State state() const override
    {
        QAccessible::State state = QAccessibleWidget::state();
        state.hasPopup = menu() != nullptr;
        return state;
    }

    QStringList actionNames() const override { return {showMenuAction()}; }

    void doAction(const QString& name) override
    {
        // An open menu keeps its caller waiting; the screen reader must get its answer first.
        if (name == showMenuAction() && button()->isEnabled())
            QMetaObject::invokeMethod(button(), &QToolButton::showMenu, Qt::QueuedConnection);
    }

private:
    MenuButton* button() const { return static_cast<MenuButton*>(object()); }
    QMenu* menu() const { return button()->menu(); }
};

QAccessibleInterface* makeInterface(const QString& className, QObject* object)
{
    if (className != QLatin1String(MenuButton::staticMetaObject.className()))
        return nullptr;
    auto* const button = qobject_cast<MenuButton*>(object);
    return button == nullptr ? nullptr : new MenuButtonAccessible(button);
}

} // namespace

MenuButton::MenuButton(QWidget* parent)
    : QToolButton(parent)
{
    static const bool installed = [] {
        QAccessible::installFactory(makeInterface);
        return true;
    }();
    Q_UNUSED(installed)
    setPopupMode(InstantPopup);
    setFocusPolicy(Qt::NoFocus);
}

} // namespace teskel
