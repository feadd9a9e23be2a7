// SPDX-License-Identifier: MIT
#pragma once

#include <QEvent>

namespace teskel
{

/// Sent by the word list to its parent before a navigation changes the current row.
inline constexpr auto navigationStart = static_cast<QEvent::Type>(3000);
/// Sent by the word list to its parent when that navigation is over.
inline constexpr auto navigationFinish = static_cast<QEvent::Type>(3001);

} // namespace teskel
