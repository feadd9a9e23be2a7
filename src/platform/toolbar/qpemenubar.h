// SPDX-License-Identifier: MIT
#pragma once

#include <QMenuBar>

/// A menu bar that stands beside other controls and takes the width of its titles, no more and,
/// where there is room for it, no less.
class QPEMenuBar : public QMenuBar
{
    Q_OBJECT

public:
    explicit QPEMenuBar(QWidget* parent = nullptr);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

private:
    int widthOfTitles() const;
};
