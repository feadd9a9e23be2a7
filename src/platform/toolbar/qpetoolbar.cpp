// SPDX-License-Identifier: MIT
#include "platform/toolbar/qpetoolbar.h"

#include <QMainWindow>
#include <QStyle>
#include <QToolButton>

#include <algorithm>

namespace
{

constexpr int usualIconSize = 24;
constexpr int smallIconSize = 16;

} // namespace

QPEToolBar::QPEToolBar(QMainWindow* window)
    : QToolBar(window)
{
    setIconSize(QSize(usualIconSize, usualIconSize));
}

QSize QPEToolBar::minimumSizeHint() const
{
    // Its own button and that of the menu bar reach everything.
    const int button = style()->pixelMetric(QStyle::PM_ToolBarExtensionExtent, nullptr, this);
    return {std::min(2 * button, QToolBar::minimumSizeHint().width()),
            QToolBar::minimumSizeHint().height()};
}

void QPEToolBar::resizeEvent(QResizeEvent* event)
{
    QToolBar::resizeEvent(event);
    const int size = width() < widthWithUsualIcons() ? smallIconSize : usualIconSize;
    if (size != iconSize().width())
        setIconSize(QSize(size, size));
}

int QPEToolBar::widthWithUsualIcons() const
{
    const QList<QAction*> members = actions();
    const auto buttons = std::count_if(members.begin(), members.end(), [this](QAction* member) {
        return qobject_cast<QToolButton*>(widgetForAction(member)) != nullptr;
    });
    return sizeHint().width() + static_cast<int>(buttons) * (usualIconSize - iconSize().width());
}
