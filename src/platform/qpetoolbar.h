// SPDX-License-Identifier: MIT
#pragma once

#include <QToolBar>

class QMainWindow;

/// The application's tool bar.
class QPEToolBar : public QToolBar
{
    Q_OBJECT

public:
    /// A child of `window`, not yet docked.
    explicit QPEToolBar(QMainWindow* window);
};
