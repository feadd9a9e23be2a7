// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>
#include <QPoint>
#include <QTimer>

class QMouseEvent;
class QWidget;

namespace teskel
{

/// Makes a held left button act as the right one on one widget.
///
/// After 500 ms within 8 pixels of the press the widget gets a right press. At the release it gets
/// the right release, and the left one outside of itself, so that the left press is no click.
class StylusHoldFilter : public QObject
{
    Q_OBJECT

public:
    /// Watches `widget`, which owns the filter.
    explicit StylusHoldFilter(QWidget* widget);

    /// The filter of `widget`, or null.
    static StylusHoldFilter* of(const QWidget* widget);

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
