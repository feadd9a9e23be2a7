// SPDX-License-Identifier: MIT
#include "platform/qpemenubar.h"

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

QSize QPEMenuBar::minimumSizeHint() const
{
    return sizeHint();
}
