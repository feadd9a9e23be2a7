// SPDX-License-Identifier: MIT
#pragma once

class QWidget;

namespace teskel
{

/// Whether the release of a press on `widget` can no longer arrive: the widget is hidden, or a
/// dialog or popup that opened during the press takes the pointer's events.
bool isReleaseLost(const QWidget* widget);

} // namespace teskel
