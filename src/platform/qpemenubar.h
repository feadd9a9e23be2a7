// SPDX-License-Identifier: MIT
#pragma once

#include <QMenuBar>

/// A menu bar that stands beside other controls and takes no more width than its titles.
class QPEMenuBar : public QMenuBar
{
    Q_OBJECT

public:
    explicit QPEMenuBar(QWidget* parent = nullptr);
};
