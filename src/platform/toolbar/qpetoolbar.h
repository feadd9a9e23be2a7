// SPDX-License-Identifier: MIT
#pragma once

#include <QToolBar>

class QMainWindow;

/// The application's tool bar, with smaller icons where the usual ones would not all fit.
///
/// What does not fit even then is behind its extension button, the last member first. It never
/// keeps its window from being as narrow as the screen.
class QPEToolBar : public QToolBar
{
    Q_OBJECT

public:
    /// A child of `window`, not yet docked.
    explicit QPEToolBar(QMainWindow* window);

    QSize minimumSizeHint() const override;

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    [[nodiscard]] int widthWithUsualIcons() const;
};
