// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>

class QWidget;

namespace teskel
{

/// Whether the release of a press on `widget` can no longer arrive: the widget is hidden, or a
/// dialog or popup that opened during the press takes the pointer's events.
bool isReleaseLost(const QWidget* widget);

/// Notices, while it lives, a modal dialog or popup that opens and may be gone again: the release
/// of what is pressed meanwhile goes to it.
class DialogWatch : public QObject
{
    Q_OBJECT

public:
    DialogWatch();

    bool sawDialog() const { return _sawDialog; }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    bool _sawDialog = false;
};

} // namespace teskel
