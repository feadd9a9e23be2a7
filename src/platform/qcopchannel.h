// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QObject>

/// One listener on a named message channel inside the program.
///
/// "QPE/Card" carries the message "mtabChanged()" after a card was mounted or unmounted.
class QCopChannel : public QObject
{
    Q_OBJECT

public:
    explicit QCopChannel(const QByteArray& channel, QObject* parent = nullptr);
    ~QCopChannel() override;
    QCopChannel(const QCopChannel&) = delete;
    QCopChannel& operator=(const QCopChannel&) = delete;

    /// Name of the channel.
    QByteArray channel() const { return _channel; }

    /// Sends a message to every listener on `channel`; it arrives through the event loop. A
    /// listener that is gone by then gets nothing.
    /// @return whether anybody listens
    static bool send(const QByteArray& channel, const QByteArray& message,
                     const QByteArray& data = {});

signals:
    void received(const QByteArray& message, const QByteArray& data);

private:
    QByteArray _channel;
};
