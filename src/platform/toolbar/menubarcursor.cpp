// SPDX-License-Identifier: MIT
#include "platform/toolbar/menubarcursor.h"

#include <QAction>
#include <QCoreApplication>
#include <QMenuBar>
#include <QMouseEvent>

namespace teskel
{

namespace
{

// QMenuBar::setActiveAction() opens the menu as well; a pointer passing over does not.
void hover(QMenuBar* bar, const QPoint& position)
{
    QMouseEvent move(QEvent::MouseMove, position, bar->mapToGlobal(position), Qt::NoButton,
                     Qt::NoButton, Qt::NoModifier);
    QCoreApplication::sendEvent(bar, &move);
}

bool isTitle(const QMenuBar* bar, QAction* action)
{
    return action->isVisible() && action->isEnabled() && !action->isSeparator() &&
           bar->actionGeometry(action).isValid();
}

QAction* title(const QMenuBar* bar, bool last)
{
    QAction* found = nullptr;
    const QList<QAction*> actions = bar->actions();
    for (QAction* action : actions) {
        if (!isTitle(bar, action))
            continue;
        found = action;
        if (!last)
            break;
    }
    return found;
}

} // namespace

QAction* firstTitle(const QMenuBar* bar)
{
    return title(bar, false);
}

QAction* lastTitle(const QMenuBar* bar)
{
    return title(bar, true);
}

void markTitle(QMenuBar* bar, QAction* title)
{
    if (title != nullptr)
        hover(bar, bar->actionGeometry(title).center());
}

void clearTitle(QMenuBar* bar)
{
    hover(bar, QPoint(-1, -1));
}

} // namespace teskel
