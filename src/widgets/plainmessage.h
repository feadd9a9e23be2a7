// SPDX-License-Identifier: MIT
#pragma once

#include <QMessageBox>

namespace teskel
{

/// Shows `text` in a modal box with one OK button and waits for it.
///
/// The text is shown letter by letter: a file name can never become markup. The parent, and with it
/// the box, may be destroyed meanwhile.
void showPlainMessage(QWidget* parent, QMessageBox::Icon icon, const QString& caption,
                      const QString& text);

} // namespace teskel
