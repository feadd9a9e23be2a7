// SPDX-License-Identifier: MIT
#include "platform/storage/mountwatcher.h"

#include "platform/qcopchannel.h"

#include <QSocketNotifier>

namespace teskel
{

MountWatcher::MountWatcher(const QString& mountInfo, QObject* parent)
    : QObject(parent)
    , _table(mountInfo)
{
    using namespace std::chrono_literals;
    _settled.setSingleShot(true);
    setSettlingTime(250ms);
    _overdue.setSingleShot(true);
    setLongestDelay(2s);
    connect(&_settled, &QTimer::timeout, this, &MountWatcher::report);
    connect(&_overdue, &QTimer::timeout, this, &MountWatcher::report);

    if (!_table.open(QIODevice::ReadOnly | QIODevice::Unbuffered))
        return;
    // The kernel reports a change as an exception; for reading the table is always ready.
    auto* notifier = new QSocketNotifier(_table.handle(), QSocketNotifier::Exception, this);
    connect(notifier, &QSocketNotifier::activated, this, &MountWatcher::changed);
}

void MountWatcher::changed()
{
    _settled.start();
    if (!_overdue.isActive())
        _overdue.start();
}

void MountWatcher::report()
{
    _settled.stop();
    _overdue.stop();
    QCopChannel::send(QByteArrayLiteral("QPE/Card"), QByteArrayLiteral("mtabChanged()"));
}

} // namespace teskel
