// SPDX-License-Identifier: MIT
#pragma once

#include <QEventLoop>
#include <QTimer>

namespace teskel::bench
{

/// Lets the event loop run until a window has painted what was asked of it, delayed layouts
/// included. Sleeping costs no CPU time, so the length does not weigh in a measurement of that.
inline void settle(int milliseconds = 6)
{
    QEventLoop loop;
    QTimer::singleShot(milliseconds, Qt::PreciseTimer, &loop, &QEventLoop::quit);
    loop.exec();
}

} // namespace teskel::bench
