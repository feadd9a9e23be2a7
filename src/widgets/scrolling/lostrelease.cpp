// SPDX-License-Identifier: MIT
#include "widgets/scrolling/lostrelease.h"

#include <QApplication>
#include <QEvent>
#include <QWidget>

namespace teskel
{

bool isReleaseLost(const QWidget* widget)
{
    const auto takesEvents = [widget](const QWidget* other) {
        return other != nullptr && other != widget->window() && !other->isAncestorOf(widget);
    };
    return !widget->isVisible() || takesEvents(QApplication::activeModalWidget()) ||
           takesEvents(QApplication::activePopupWidget());
}

DialogWatch::DialogWatch()
{
    qApp->installEventFilter(this);
}

bool DialogWatch::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::Show && watched->isWidgetType()) {
        const auto* const shown = static_cast<QWidget*>(watched);
        _sawDialog |= shown->isWindow() && (shown->isModal() || shown->windowType() == Qt::Popup);
    }
    return false;
}

} // namespace teskel
