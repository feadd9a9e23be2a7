// SPDX-License-Identifier: MIT
#pragma once

class QScrollArea;
class QWidget;

namespace teskel
{

/// Puts `content` into a frameless area that scrolls only where the screen is too small for it.
///
/// The area shows the background of `parent`, becomes the owner of `content` and is owned by
/// `parent`.
QScrollArea* scrollWhereNeeded(QWidget* content, QWidget* parent);

/// Width in pixels at which a form in the font of `widget` still reads as one piece.
int comfortableWidth(const QWidget* widget);

} // namespace teskel
