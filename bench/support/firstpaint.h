// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>

class QWidget;

namespace teskel::bench
{

/// Ends the program when a window has been painted for the first time, without any clean-up, and
/// prints how many bytes the program has read by then.
class FirstPaint : public QObject
{
public:
    /// To be made before `window` is shown; borrowed.
    explicit FirstPaint(QWidget* window);

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    QWidget* _window;
    bool _isPainted = false;
};

} // namespace teskel::bench
