// SPDX-License-Identifier: MIT
#include "platform/toolbar/qpemenutoolfocusmanager.h"

#include "platform/toolbar/menubarcursor.h"

#include <QApplication>
#include <QContextMenuEvent>
#include <QKeyEvent>
#include <QMenu>
#include <QMenuBar>
#include <QToolBar>
#include <QToolButton>

using namespace Qt::StringLiterals;

namespace
{

bool isUsable(const QWidget* widget)
{
    return widget->isVisible() && widget->isEnabled() &&
           (qobject_cast<const QAbstractButton*>(widget) != nullptr ||
            qobject_cast<const QMenuBar*>(widget) != nullptr);
}

// A menu bar is followed by its button for the titles that do not fit.
QWidgetList withExtension(QWidget* widget)
{
    QWidgetList widgets{widget};
    if (qobject_cast<QMenuBar*>(widget) != nullptr) {
        if (auto* more = widget->findChild<QToolButton*>(u"qt_menubar_ext_button"_s))
            widgets.append(more);
    }
    return widgets;
}

QWidgetList widgetsOn(QWidget* member)
{
    const auto* bar = qobject_cast<const QToolBar*>(member);
    if (bar == nullptr)
        return withExtension(member);
    QWidgetList widgets;
    const QList<QAction*> actions = bar->actions();
    for (QAction* action : actions) {
        if (QWidget* widget = bar->widgetForAction(action))
            widgets.append(withExtension(widget));
    }
    // What does not fit is reached through the bar's own button.
    if (auto* more = bar->findChild<QToolButton*>(u"qt_toolbar_ext_button"_s))
        widgets.append(more);
    return widgets;
}

bool isChooseKey(int key)
{
    return key == Qt::Key_Space || key == Qt::Key_Return || key == Qt::Key_Enter;
}

bool isToggleKey(const QKeyEvent* event)
{
    return event->key() == Qt::Key_Menu ||
           (event->key() == Qt::Key_F10 && event->modifiers() == Qt::NoModifier);
}

// 1 for the key that leads to the next member, -1 for the previous one, else 0.
int directionOf(const QKeyEvent* event, const QWidget* widget)
{
    const int forward = widget->isRightToLeft() ? Qt::Key_Left : Qt::Key_Right;
    if (event->key() != Qt::Key_Left && event->key() != Qt::Key_Right)
        return 0;
    return event->key() == forward ? 1 : -1;
}

void press(QAbstractButton* button)
{
    auto* toolButton = qobject_cast<QToolButton*>(button);
    if (toolButton != nullptr && toolButton->menu() != nullptr &&
        toolButton->popupMode() == QToolButton::InstantPopup)
        toolButton->showMenu();
    else
        button->click();
}

} // namespace

QPEMenuToolFocusManager::QPEMenuToolFocusManager(QObject* parent)
    : QObject(parent)
{
    qApp->installEventFilter(this);
    connect(qApp, &QApplication::focusChanged, this,
            [this](QWidget* /*old*/, QWidget* now) { focusChanged(now); });
}

QPEMenuToolFocusManager* QPEMenuToolFocusManager::manager()
{
    static QPointer<QPEMenuToolFocusManager> theManager;
    if (theManager == nullptr)
        theManager = new QPEMenuToolFocusManager(qApp);
    return theManager;
}

void QPEMenuToolFocusManager::addWidget(QWidget* widget)
{
    _members.removeAll(nullptr);
    if (!_members.contains(widget))
        _members.append(widget);
}

void QPEMenuToolFocusManager::removeWidget(QWidget* widget)
{
    _members.removeAll(widget);
}

QWidgetList QPEMenuToolFocusManager::ring(const QWidget* window) const
{
    QWidgetList widgets;
    for (const QPointer<QWidget>& member : _members) {
        if (member == nullptr || member->window() != window)
            continue;
        const QWidgetList parts = widgetsOn(member);
        for (QWidget* part : parts) {
            if (isUsable(part) && !widgets.contains(part))
                widgets.append(part);
        }
    }
    return widgets;
}

bool QPEMenuToolFocusManager::eventFilter(QObject* watched, QEvent* event)
{
    if (!watched->isWidgetType())
        return false;
    auto* widget = static_cast<QWidget*>(watched);
    switch (event->type()) {
    case QEvent::KeyPress:
        return keyPressed(widget, static_cast<QKeyEvent*>(event));
    case QEvent::KeyRelease:
        return keyReleased(widget, static_cast<QKeyEvent*>(event));
    case QEvent::ContextMenu:
        // The Menu key asks for a context menu first.
        return static_cast<QContextMenuEvent*>(event)->reason() == QContextMenuEvent::Keyboard &&
               (_active || !ring(widget->window()).isEmpty());
    case QEvent::Hide:
        if (_active && qobject_cast<QMenu*>(widget) != nullptr) {
            // The next menu of the bar may be about to open.
            QMetaObject::invokeMethod(
                this,
                [this] {
                    if (QApplication::activePopupWidget() == nullptr)
                        end(true);
                },
                Qt::QueuedConnection);
        }
        return false;
    default:
        return false;
    }
}

bool QPEMenuToolFocusManager::keyPressed(QWidget* widget, const QKeyEvent* event)
{
    if (isToggleKey(event))
        return toggle(event);
    if (!_active || !ring(widget->window()).contains(widget))
        return false;
    if (auto* bar = qobject_cast<QMenuBar*>(widget))
        return keyOnMenuBar(bar, event);
    return keyOnButton(static_cast<QAbstractButton*>(widget), event);
}

bool QPEMenuToolFocusManager::toggle(const QKeyEvent* event)
{
    if (_active) {
        while (QWidget* popup = QApplication::activePopupWidget()) {
            if (!popup->close())
                break;
        }
        if (!event->isAutoRepeat())
            end(true);
        return true;
    }
    QWidget* window = QApplication::activeWindow();
    if (window == nullptr || QApplication::activePopupWidget() != nullptr)
        return false;
    const QWidgetList widgets = ring(window);
    if (widgets.isEmpty())
        return false;
    if (event->isAutoRepeat())
        return true;
    _oldFocus = QApplication::focusWidget();
    _active = true;
    enter(widgets.constFirst(), false);
    return true;
}

bool QPEMenuToolFocusManager::keyOnMenuBar(QMenuBar* bar, const QKeyEvent* event)
{
    if (event->key() == Qt::Key_Escape) {
        end(true);
        return true;
    }
    const int direction = directionOf(event, bar);
    if (direction == 0)
        return false;
    const QAction* edge = direction > 0 ? teskel::lastTitle(bar) : teskel::firstTitle(bar);
    if (bar->activeAction() != nullptr && bar->activeAction() != edge)
        return false;
    step(bar, direction);
    return true;
}

bool QPEMenuToolFocusManager::keyOnButton(QAbstractButton* button, const QKeyEvent* event)
{
    if (const int direction = directionOf(event, button)) {
        step(button, direction);
        return true;
    }
    switch (event->key()) {
    case Qt::Key_Up:
    case Qt::Key_Down:
        return true;
    case Qt::Key_Escape:
        end(true);
        return true;
    default:
        break;
    }
    if (!isChooseKey(event->key()))
        return false;
    // The button acts at the release; repeats of the key must not reach the old focus widget.
    if (!event->isAutoRepeat()) {
        _pressed = button;
        button->setDown(true);
    }
    return true;
}

bool QPEMenuToolFocusManager::keyReleased(QWidget* widget, const QKeyEvent* event)
{
    if (!_active || _pressed == nullptr || _pressed != widget || !isChooseKey(event->key()))
        return false;
    if (event->isAutoRepeat())
        return true;
    const QPointer<QAbstractButton> button = _pressed;
    end(true);
    if (button != nullptr)
        press(button);
    return true;
}

void QPEMenuToolFocusManager::step(QWidget* from, int direction)
{
    const QWidgetList widgets = ring(from->window());
    const qsizetype count = widgets.size();
    if (count == 0)
        return;
    const qsizetype next = (widgets.indexOf(from) + direction + count) % count;
    if (auto* bar = qobject_cast<QMenuBar*>(from))
        teskel::clearTitle(bar);
    enter(widgets[next], direction < 0);
}

void QPEMenuToolFocusManager::enter(QWidget* member, bool atEnd)
{
    if (_pressed != nullptr)
        _pressed->setDown(false);
    _pressed = nullptr;
    member->setFocus(Qt::MenuBarFocusReason);
    if (auto* bar = qobject_cast<QMenuBar*>(member))
        teskel::markTitle(bar, atEnd ? teskel::lastTitle(bar) : teskel::firstTitle(bar));
}

void QPEMenuToolFocusManager::end(bool giveBack)
{
    if (!_active)
        return;
    _active = false;
    if (_pressed != nullptr)
        _pressed->setDown(false);
    _pressed = nullptr;

    QWidget* member = QApplication::focusWidget();
    if (giveBack && _oldFocus != nullptr)
        _oldFocus->setFocus(Qt::MenuBarFocusReason);
    else if (giveBack && member != nullptr)
        member->clearFocus();
    _oldFocus = nullptr;
    for (const QPointer<QWidget>& candidate : std::as_const(_members)) {
        if (candidate == nullptr)
            continue;
        const QWidgetList parts = widgetsOn(candidate);
        for (QWidget* part : parts) {
            if (auto* bar = qobject_cast<QMenuBar*>(part))
                teskel::clearTitle(bar);
        }
    }
}

void QPEMenuToolFocusManager::focusChanged(const QWidget* now)
{
    if (!_active || now == nullptr || now->window()->windowType() == Qt::Popup)
        return;
    const QWidgetList widgets = ring(now->window());
    if (std::find(widgets.cbegin(), widgets.cend(), now) == widgets.cend())
        end(false);
}
