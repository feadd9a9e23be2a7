// SPDX-License-Identifier: MIT
#pragma once

#include "bench/support/barewindow.h"
#include "lookup/teskelmainwidget.h"
#include "settings/preferences.h"

#include <QMainWindow>

class QDictionaryListBox;
class QLineEdit;

namespace teskel::bench
{

/// Sends settings into a directory of their own, which is removed at the end. To be called before
/// anything reads or writes settings.
void useOwnSettings();

/// The reader's lookup view in a window.
class ReaderWindow : public QMainWindow
{
    Q_OBJECT

public:
    /// Opens the dictionary at `path`; ends the program with a message when that fails.
    explicit ReaderWindow(const QString& path);
    Q_DISABLE_COPY_MOVE(ReaderWindow)
    ~ReaderWindow() override;

    QLineEdit* entry() const;
    QDictionaryListBox* list() const;
    /// What it shows now.
    [[nodiscard]] View view() const;

private:
    PreferencesData _preferences;
    TeskelMainWidget* _lookup;
};

} // namespace teskel::bench
