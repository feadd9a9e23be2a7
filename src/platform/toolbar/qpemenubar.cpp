// SPDX-License-Identifier: MIT
#include "platform/toolbar/qpemenubar.h"

#include <QAction>
#include <QStyle>
#include <QStyleOptionMenuItem>

QPEMenuBar::QPEMenuBar(QWidget* parent)
    : QMenuBar(parent)
{
    setNativeMenuBar(false);
    // The tool bar's own background shows through, so that titles and buttons look like one bar.
    QPalette clear;
    clear.setColor(QPalette::Window, Qt::transparent);
    setPalette(clear);
    setSizePolicy(QSizePolicy::Maximum, QSizePolicy::Fixed);
}

QSize QPEMenuBar::sizeHint() const
{
    QSize hint = QMenuBar::sizeHint();
    // Of titles that run from right to left Qt measures the far edge, which is that of the bar.
    if (isRightToLeft())
        hint.setWidth(widthOfTitles());
    return hint;
}

int QPEMenuBar::widthOfTitles() const
{
    const auto metric = [this](QStyle::PixelMetric which) {
        return style()->pixelMetric(which, nullptr, this);
    };
    int width = 2 * (metric(QStyle::PM_MenuBarPanelWidth) + metric(QStyle::PM_MenuBarHMargin));
    const QList<QAction*> titles = actions();
    for (const QAction* title : titles) {
        QStyleOptionMenuItem option;
        initStyleOption(&option, title);
        const QSize text = fontMetrics().size(Qt::TextShowMnemonic, title->text());
        const QSize size = style()->sizeFromContents(QStyle::CT_MenuBarItem, &option, text, this);
        width += metric(QStyle::PM_MenuBarItemSpacing) + (title->isVisible() ? size.width() : 0);
    }
    return width;
}

QSize QPEMenuBar::minimumSizeHint() const
{
    return sizeHint();
}
