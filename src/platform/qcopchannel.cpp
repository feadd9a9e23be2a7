// SPDX-License-Identifier: MIT
#include "platform/qcopchannel.h"

#include <QList>

namespace
{

Q_GLOBAL_STATIC(QList<QCopChannel*>, listeners)

} // namespace

QCopChannel::QCopChannel(const QByteArray& channel, QObject* parent)
    : QObject(parent)
    , _channel(channel)
{
    listeners->append(this);
}

QCopChannel::~QCopChannel()
{
    if (!listeners.isDestroyed())
        listeners->removeOne(this);
}

bool QCopChannel::send(const QByteArray& channel, const QByteArray& message, const QByteArray& data)
{
    bool heard = false;
    for (QCopChannel* listener : std::as_const(*listeners)) {
        if (listener->_channel != channel)
            continue;
        heard = true;
        QMetaObject::invokeMethod(
            listener, [listener, message, data] { emit listener->received(message, data); },
            Qt::QueuedConnection);
    }
    return heard;
}
