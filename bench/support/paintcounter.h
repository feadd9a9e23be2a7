// SPDX-License-Identifier: MIT
#pragma once

#include <QEvent>
#include <QObject>

namespace teskel::bench
{

/// Counts the paint events of a widget, so that a measurement can show that it included painting.
class PaintCounter : public QObject
{
public:
    explicit PaintCounter(QObject* widget) { widget->installEventFilter(this); }

    [[nodiscard]] int count() const { return _count; }

    bool eventFilter(QObject* watched, QEvent* event) override
    {
        if (event->type() == QEvent::Paint)
            ++_count;
        return QObject::eventFilter(watched, event);
    }

private:
    int _count = 0;
};

} // namespace teskel::bench
