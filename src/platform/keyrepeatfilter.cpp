// SPDX-License-Identifier: MIT
#include "platform/keyrepeatfilter.h"

#include <QCoreApplication>
#include <QKeyEvent>
#include <QPointer>

namespace teskel
{

bool KeyRepeatFilter::eventFilter(QObject* watched, QEvent* event)
{
    if (!watched->isWindowType())
        return false;
    if (event->type() == QEvent::KeyRelease) {
        _downKey = 0;
        return false;
    }
    if (event->type() != QEvent::KeyPress)
        return false;

    const auto* press = static_cast<QKeyEvent*>(event);
    if (press->isAutoRepeat() && press->key() == _downKey) {
        const QPointer<QObject> window = watched;
        QKeyEvent release(QEvent::KeyRelease, press->key(), press->modifiers(),
                          press->nativeScanCode(), press->nativeVirtualKey(),
                          press->nativeModifiers(), press->text(), true);
        QCoreApplication::sendEvent(watched, &release);
        if (!window)
            return true;
    }
    _downKey = press->key();
    return false;
}

} // namespace teskel
