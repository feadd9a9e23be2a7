// SPDX-License-Identifier: MIT
#pragma once

#include <QFile>
#include <QObject>
#include <QTimer>

#include <chrono>

namespace teskel
{

/// Sends "mtabChanged()" on the channel "QPE/Card" when the mount table changes.
///
/// Changes that follow each other within the settling time, as when a desktop mounts a card in
/// several steps, are one message; where changes never cease there is one at each longest delay.
/// Without a table to watch no message comes.
class MountWatcher : public QObject
{
    Q_OBJECT

public:
    /// @param mountInfo the mount table to watch, e.g. "/proc/self/mountinfo"
    explicit MountWatcher(const QString& mountInfo, QObject* parent = nullptr);

    /// How long no change may follow before the message is sent; a quarter of a second at first.
    std::chrono::milliseconds settlingTime() const { return _settled.intervalAsDuration(); }
    /// Begins anew for a change that waits for its message.
    void setSettlingTime(std::chrono::milliseconds time) { _settled.setInterval(time); }

    /// How long the message for a change waits while more changes follow; two seconds at first.
    std::chrono::milliseconds longestDelay() const { return _overdue.intervalAsDuration(); }
    /// Begins anew for a change that waits for its message.
    void setLongestDelay(std::chrono::milliseconds delay) { _overdue.setInterval(delay); }

private:
    void changed();
    void report();

    QFile _table;
    QTimer _settled;
    QTimer _overdue;
};

} // namespace teskel
