// SPDX-License-Identifier: MIT
#include "platform/application/keyrepeatfilter.h"

#include <QCoreApplication>
#include <QKeyEvent>
#include <QPointer>

namespace teskel
{

namespace
{

// The same for a key whatever it means with the modifiers of the moment; where the windowing system
// does not number the keys, their meaning must do.
quint64 physicalKey(const QKeyEvent& event)
{
    constexpr quint64 meaning = 1ULL << 32;
    return event.nativeScanCode() != 0 ? event.nativeScanCode()
                                       : meaning | static_cast<quint32>(event.key());
}

} // namespace

bool KeyRepeatFilter::eventFilter(QObject* watched, QEvent* event)
{
    if (!watched->isWindowType())
        return false;
    if (event->type() == QEvent::KeyRelease) {
        _downKeys.remove(physicalKey(*static_cast<QKeyEvent*>(event)));
        return false;
    }
    if (event->type() != QEvent::KeyPress)
        return false;

    const auto* press = static_cast<QKeyEvent*>(event);
    if (press->isAutoRepeat() && _downKeys.contains(physicalKey(*press))) {
        const QPointer<QObject> window = watched;
        QKeyEvent release(QEvent::KeyRelease, press->key(), press->modifiers(),
                          press->nativeScanCode(), press->nativeVirtualKey(),
                          press->nativeModifiers(), press->text(), true);
        QCoreApplication::sendEvent(watched, &release);
        if (!window)
            return true;
    }
    _downKeys.insert(physicalKey(*press));
    return false;
}

} // namespace teskel
