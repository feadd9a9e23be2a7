// SPDX-License-Identifier: MIT
#include "settings/settingssaver.h"

#include "settings/preferences.h"

#include <QCoreApplication>
#include <QEvent>

#include <algorithm>

namespace teskel
{

namespace
{

bool isUse(QEvent::Type type)
{
    switch (type) {
    case QEvent::KeyPress:
    case QEvent::InputMethod:
    case QEvent::MouseButtonPress:
    case QEvent::TouchBegin:
    case QEvent::Wheel:
        return true;
    default:
        return false;
    }
}

} // namespace

SettingsSaver::SettingsSaver(PreferencesData& preferences, QObject* parent)
    : QObject(parent)
    , _preferences(preferences)
{
    _timer.setSingleShot(true);
    _timer.setTimerType(Qt::PreciseTimer);
    connect(&_timer, &QTimer::timeout, this, &SettingsSaver::save);
    _preferences.setChangeHandler([this] { takeChange(); });
}

SettingsSaver::~SettingsSaver()
{
    _preferences.setChangeHandler({});
}

void SettingsSaver::setTimes(std::chrono::milliseconds rest, std::chrono::milliseconds longest)
{
    _rest = rest;
    _longest = longest;
}

void SettingsSaver::setPauses(std::chrono::milliseconds first, std::chrono::milliseconds longest)
{
    _firstPause = first;
    _longestPause = longest;
}

bool SettingsSaver::eventFilter(QObject* watched, QEvent* event)
{
    if (isUse(event->type()))
        waitForRest();
    return QObject::eventFilter(watched, event);
}

void SettingsSaver::takeChange()
{
    if (!_isResting) {
        _isResting = true;
        _pause = std::chrono::milliseconds(0);
        _unsaved.start();
        QCoreApplication::instance()->installEventFilter(this);
    }
    waitForRest();
}

void SettingsSaver::waitForRest()
{
    const std::chrono::milliseconds left = _longest - std::chrono::milliseconds(_unsaved.elapsed());
    _timer.start(std::clamp(left, std::chrono::milliseconds(0), _rest));
}

void SettingsSaver::save()
{
    _isResting = false;
    QCoreApplication::instance()->removeEventFilter(this);
    if (_preferences.save())
        _pause = std::chrono::milliseconds(0);
    else
        tryAgainLater();
}

void SettingsSaver::tryAgainLater()
{
    _pause = std::clamp(_pause * 5 / 4, _firstPause, _longestPause);
    _timer.start(_pause);
}

} // namespace teskel
