// SPDX-License-Identifier: MIT
#pragma once

#include <QDialog>

class QListWidget;
class QPushButton;
class QTabWidget;

namespace teskel
{
class ButtonGroupBox;
}

/// The controls of the Preferences dialog, created and placed; nothing is connected.
///
/// It has no OK or Cancel: those belong to the frame that the platform puts around a dialog. The
/// number of a button in its group is the value of the setting that it stands for. Go by number and
/// caption, not by object name: the names of the two menu buttons are crossed.
class PreferencesBaseDialog : public QDialog
{
    Q_OBJECT

public:
    explicit PreferencesBaseDialog(QWidget* parent = nullptr, const char* name = nullptr,
                                   bool modal = false, Qt::WindowFlags flags = {});

    /// Position of the word entry: 0 top, 1 bottom.
    teskel::ButtonGroupBox* panelCombo() const { return _panelCombo; }
    /// The user's hand: 0 left, 1 right.
    teskel::ButtonGroupBox* panelHanded() const { return _panelHanded; }
    /// Arrangement of the panels: 0 horizontal, 1 vertical.
    teskel::ButtonGroupBox* panelView() const { return _panelView; }
    /// Position of the tool bar: 0 top, 1 bottom.
    teskel::ButtonGroupBox* panelMenu() const { return _panelMenu; }

protected:
    /// Applies the fonts of the size buttons again when the application's font changes.
    bool event(QEvent* event) override;

    QListWidget* _listboxFonts = nullptr;
    teskel::ButtonGroupBox* _groupFont = nullptr;
    QPushButton* _btnNormal = nullptr;
    QPushButton* _btnSmall = nullptr;
    QPushButton* _btnLarge = nullptr;

private:
    QWidget* createCommonPage();
    QWidget* createFontPage();
    void applySampleFonts();

    QTabWidget* _tabs = nullptr;
    teskel::ButtonGroupBox* _panelCombo = nullptr;
    teskel::ButtonGroupBox* _panelHanded = nullptr;
    teskel::ButtonGroupBox* _panelView = nullptr;
    teskel::ButtonGroupBox* _panelMenu = nullptr;
};
