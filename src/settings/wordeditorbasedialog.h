// SPDX-License-Identifier: MIT
#pragma once

#include <QDialog>

class QLineEdit;
class QPlainTextEdit;
class QPushButton;
class QToolButton;

/// The controls of the word editor, created and placed; nothing is connected.
class WordEditorBaseDialog : public QDialog
{
    Q_OBJECT

public:
    explicit WordEditorBaseDialog(QWidget* parent = nullptr, const char* name = nullptr,
                                  bool modal = false, Qt::WindowFlags flags = {});

protected:
    QLineEdit* _editWord = nullptr;
    QToolButton* _btnClear = nullptr;
    QPlainTextEdit* _editDescription = nullptr;
    QPushButton* _btnDelete = nullptr;
};
