// SPDX-License-Identifier: MIT
#include "platform/qpetoolbar.h"

#include <QMainWindow>

QPEToolBar::QPEToolBar(QMainWindow* window)
    : QToolBar(window)
{
}
