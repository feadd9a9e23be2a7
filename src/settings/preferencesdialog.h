// SPDX-License-Identifier: MIT
#pragma once

#include "settings/preferencesbasedialog.h"

#include <QFont>

/// Lets the user choose the arrangement of the window and the font of a dictionary.
///
/// It knows neither the settings record nor the window: its caller selects the buttons before it
/// runs and reads them once it was accepted.
class PreferencesDialog : public PreferencesBaseDialog
{
    Q_OBJECT

public:
    /// Lists every font family of the system in the order that the font database gives.
    explicit PreferencesDialog(QWidget* parent = nullptr, const char* name = nullptr,
                               bool modal = false, Qt::WindowFlags flags = {});

    /// Shows `font`: the family that the system really uses for it, if listed, and its size as
    /// small (up to 10 points), normal (up to 13) or large.
    void setCurrentFont(const QFont& font);

    /// The font of setCurrentFont() with the selected family, if one is, and 10, 12 or 14 points.
    ///
    /// Not its inverse: 18 points come back as 14, 11 as 12. Weight and slant are kept.
    QFont getSelectedFont();

protected:
    void showEvent(QShowEvent* event) override;

private:
    void selectFamily(const QString& family);
    void selectSize(int pointSize);

    QFont _font;
};
