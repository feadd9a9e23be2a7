// SPDX-License-Identifier: MIT
#pragma once

class QAction;
class QMenuBar;

/// The highlighted title of a menu bar whose menus are closed.
namespace teskel
{

/// The first and the last title that can be chosen, or null.
QAction* firstTitle(const QMenuBar* bar);
QAction* lastTitle(const QMenuBar* bar);

/// Highlights `title` without opening its menu, so that the bar's own keys start from it.
void markTitle(QMenuBar* bar, QAction* title);

/// Takes the highlight away.
void clearTitle(QMenuBar* bar);

} // namespace teskel
