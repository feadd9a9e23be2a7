// SPDX-License-Identifier: MIT
#include "widgets/lostrelease.h"

#include <QApplication>
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

} // namespace teskel
