// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>

namespace teskel
{

/// Keeps one slot from hearing one signal while the program itself causes that signal.
///
/// The connection is cut on construction and made again on destruction. Unlike QSignalBlocker it
/// silences a single receiver. A pause within a pause of the same connection finds nothing to cut
/// and makes nothing again, so a connection never comes back early or twice.
template<typename Sender, typename Signal, typename Receiver, typename Slot>
class SlotPause
{
public:
    SlotPause(Sender* sender, Signal signal, Receiver* receiver, Slot slot)
        : _sender(sender)
        , _signal(signal)
        , _receiver(receiver)
        , _slot(slot)
        , _wasConnected(QObject::disconnect(sender, signal, receiver, slot))
    {
    }

    ~SlotPause()
    {
        if (_wasConnected)
            QObject::connect(_sender, _signal, _receiver, _slot);
    }

    Q_DISABLE_COPY_MOVE(SlotPause)

private:
    Sender* _sender;
    Signal _signal;
    Receiver* _receiver;
    Slot _slot;
    bool _wasConnected;
};

} // namespace teskel
