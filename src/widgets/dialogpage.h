// SPDX-License-Identifier: MIT
#pragma once

class QDialog;
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

/// Lays `content` out as the one piece of `dialog`: all of a small screen; on a large one no more
/// than a comfortable square, in the middle at the top.
void fillDialog(QDialog* dialog, QWidget* content);

} // namespace teskel
