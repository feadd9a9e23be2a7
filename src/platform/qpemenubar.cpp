// SPDX-License-Identifier: MIT
#include "platform/qpemenubar.h"

QPEMenuBar::QPEMenuBar(QWidget* parent)
    : QMenuBar(parent)
{
    setNativeMenuBar(false);
    setSizePolicy(QSizePolicy::Maximum, QSizePolicy::Fixed);
}
