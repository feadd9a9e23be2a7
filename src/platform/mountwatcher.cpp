// SPDX-License-Identifier: MIT
#include "platform/mountwatcher.h"

#include "platform/qcopchannel.h"

#include <QSocketNotifier>
#include <chrono>

namespace teskel
{

MountWatcher::MountWatcher(const QString& mountInfo, QObject* parent)
    : QObject(parent)
    , _table(mountInfo)
{
    using namespace std::chrono_literals;
    _settled.setSingleShot(true);
    _settled.setInterval(250ms);
    connect(&_settled, &QTimer::timeout, this, [] {
        QCopChannel::send(QByteArrayLiteral("QPE/Card"), QByteArrayLiteral("mtabChanged()"));
    });

    if (!_table.open(QIODevice::ReadOnly | QIODevice::Unbuffered))
        return;
    // The kernel reports a change as an exception; for reading the table is always ready.
    auto* notifier = new QSocketNotifier(_table.handle(), QSocketNotifier::Exception, this);
    connect(notifier, &QSocketNotifier::activated, &_settled, qOverload<>(&QTimer::start));
}

} // namespace teskel
