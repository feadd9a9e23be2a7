// SPDX-License-Identifier: MIT
#include "platform/application/stylusholdfilter.h"

#include <QCoreApplication>
#include <QMouseEvent>
#include <QPointer>
#include <QWidget>

namespace teskel
{

namespace
{

constexpr int holdRadius = 8;

void sendMouse(QWidget* widget, QEvent::Type type, const QPoint& position, Qt::MouseButton button)
{
    const Qt::MouseButtons held =
        type == QEvent::MouseButtonPress ? Qt::MouseButtons(button) : Qt::NoButton;
    QMouseEvent event(type, position, widget->mapToGlobal(position), button, held, Qt::NoModifier);
    QCoreApplication::sendEvent(widget, &event);
}

bool isNear(const QPoint& a, const QPoint& b)
{
    const QPoint d = a - b;
    return QPoint::dotProduct(d, d) <= holdRadius * holdRadius;
}

} // namespace

StylusHoldFilter::StylusHoldFilter(QWidget* widget)
    : QObject(widget)
    , _widget(widget)
{
    using namespace std::chrono_literals;
    _timer.setSingleShot(true);
    _timer.setTimerType(Qt::PreciseTimer);
    setHoldTime(500ms);
    connect(&_timer, &QTimer::timeout, this, &StylusHoldFilter::hold);
    widget->installEventFilter(this);
}

StylusHoldFilter* StylusHoldFilter::of(const QWidget* widget)
{
    return widget->findChild<StylusHoldFilter*>(QString(), Qt::FindDirectChildrenOnly);
}

bool StylusHoldFilter::eventFilter(QObject* /*watched*/, QEvent* event)
{
    switch (event->type()) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonDblClick:
        pressed(static_cast<QMouseEvent*>(event));
        return false;
    case QEvent::MouseMove:
        return moved(static_cast<QMouseEvent*>(event));
    case QEvent::MouseButtonRelease: {
        const auto* mouse = static_cast<QMouseEvent*>(event);
        if (mouse->button() != Qt::LeftButton)
            return false;
        _timer.stop();
        if (!_held)
            return false;
        released(mouse);
        return true;
    }
    case QEvent::Hide:
        _timer.stop();
        _held = false;
        return false;
    default:
        return false;
    }
}

void StylusHoldFilter::pressed(const QMouseEvent* event)
{
    if (event->button() != Qt::LeftButton) {
        _timer.stop();
        return;
    }
    _held = false;
    _pressPosition = event->position().toPoint();
    _timer.start();
}

bool StylusHoldFilter::moved(const QMouseEvent* event)
{
    if (!isNear(event->position().toPoint(), _pressPosition))
        _timer.stop();
    // The release may have gone to a menu that the right press opened.
    _held = _held && event->buttons().testFlag(Qt::LeftButton);
    // A drag with the left button must not follow the right press.
    return _held;
}

void StylusHoldFilter::hold()
{
    _held = true;
    sendMouse(_widget, QEvent::MouseButtonPress, _pressPosition, Qt::RightButton);
}

void StylusHoldFilter::released(const QMouseEvent* event)
{
    _held = false;
    const QPointer<QWidget> widget = _widget;
    sendMouse(_widget, QEvent::MouseButtonRelease, event->position().toPoint(), Qt::RightButton);
    if (widget)
        sendMouse(widget, QEvent::MouseButtonRelease, QPoint(-1, -1), Qt::LeftButton);
}

} // namespace teskel
