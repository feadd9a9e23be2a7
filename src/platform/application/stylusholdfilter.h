// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>
#include <QPoint>
#include <QTimer>

#include <chrono>

class QMouseEvent;
class QWidget;

namespace teskel
{

/// Makes a held left button act as the right one on one widget.
///
/// After the hold time within 8 pixels of the press the widget gets a right press. At the release
/// it gets the right release, and the left one outside of itself, so that the left press is no
/// click.
class StylusHoldFilter : public QObject
{
    Q_OBJECT

public:
    /// Watches `widget`, which owns the filter.
    explicit StylusHoldFilter(QWidget* widget);

    /// The filter of `widget`, or null.
    static StylusHoldFilter* of(const QWidget* widget);

    /// How long the button is held until it acts as the right one; 500 ms at first.
    std::chrono::milliseconds holdTime() const { return _timer.intervalAsDuration(); }
    /// Begins anew for a button that is held already.
    void setHoldTime(std::chrono::milliseconds time) { _timer.setInterval(time); }

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void pressed(const QMouseEvent* event);
    bool moved(const QMouseEvent* event);
    void hold();
    void released(const QMouseEvent* event);

    QWidget* _widget;
    QTimer _timer;
    QPoint _pressPosition;
    bool _held = false;
};

} // namespace teskel
