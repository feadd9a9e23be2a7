// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>

class QDialog;
class QDialogButtonBox;

namespace teskel
{

/// The OK and Cancel buttons at the lower edge of a dialog that has none of its own.
///
/// The buttons are put there from outside: the dialog's contents margins make room for them, so
/// that its layout keeps clear; a dialog without a layout grows by their height.
class DialogFrame : public QObject
{
    Q_OBJECT

public:
    /// Puts the buttons into `dialog` unless it has a frame or a button box already.
    static void addTo(QDialog* dialog);

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    explicit DialogFrame(QDialog* dialog);
    void reserveRoom();
    void placeButtons();

    QDialog* _dialog;
    QDialogButtonBox* _buttons;
    int _margin;   ///< the dialog's own lower margin
    int _reserved; ///< the lower margin that is in force
};

} // namespace teskel
