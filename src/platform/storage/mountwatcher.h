// SPDX-License-Identifier: MIT
#pragma once

#include <QFile>
#include <QObject>
#include <QTimer>

namespace teskel
{

/// Sends "mtabChanged()" on the channel "QPE/Card" when the mount table changes.
///
/// Changes that follow each other within a quarter of a second, as when a desktop mounts a card in
/// several steps, are one message; where changes never cease there is one about every two seconds.
/// Without a table to watch no message comes.
class MountWatcher : public QObject
{
    Q_OBJECT

public:
    /// @param mountInfo the mount table to watch, e.g. "/proc/self/mountinfo"
    explicit MountWatcher(const QString& mountInfo, QObject* parent = nullptr);

private:
    void changed();
    void report();

    QFile _table;
    QTimer _settled;
    QTimer _overdue;
};

} // namespace teskel
