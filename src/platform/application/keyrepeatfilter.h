// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>
#include <QSet>

namespace teskel
{

/// Gives every repeat of a held key a release before its press.
///
/// X11 and Wayland report a held key as pairs of a release and a press, both marked as repeats; the
/// framebuffer's input drivers report the presses only. Widgets that act on the release would then
/// stand still until the key is let go. Pairs pass through untouched.
class KeyRepeatFilter : public QObject
{
    Q_OBJECT

public:
    using QObject::QObject;

    /// To be installed on the application; looks at what the windowing system sends to windows.
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    QSet<quint64> _downKeys; ///< those whose last event was a press
};

} // namespace teskel
