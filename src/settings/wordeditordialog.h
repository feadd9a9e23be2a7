// SPDX-License-Identifier: MIT
#pragma once

#include "settings/wordeditorbasedialog.h"

/// Edits a word and its article; no command opens it yet.
class WordEditorDialog : public WordEditorBaseDialog
{
    Q_OBJECT

public:
    explicit WordEditorDialog(QWidget* parent = nullptr, const char* name = nullptr,
                              bool modal = false, Qt::WindowFlags flags = {});

    /// Empties the word field; the description stays.
    Q_SLOT void clearWord();
};
