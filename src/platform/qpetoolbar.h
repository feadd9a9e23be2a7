// SPDX-License-Identifier: MIT
#pragma once

#include <QToolBar>

class QMainWindow;

/// The application's tool bar, with smaller icons where the usual ones would not all fit.
class QPEToolBar : public QToolBar
{
    Q_OBJECT

public:
    /// A child of `window`, not yet docked.
    explicit QPEToolBar(QMainWindow* window);

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    [[nodiscard]] int widthWithUsualIcons() const;
};
