// SPDX-License-Identifier: MIT
#pragma once

#include <QMainWindow>

#include <functional>

class QLineEdit;
class QListWidget;
class QTextEdit;

namespace teskel::bench
{

/// What a lookup window shows.
struct View {
    QStringList rows;
    int currentRow = -1;
    QString html;
};

/// The least a Qt program needs to look like a lookup window: an entry, 20 rows and a rich text.
class BareWindow : public QMainWindow
{
    Q_OBJECT

public:
    BareWindow();

    /// Sets every row, the current one and the text.
    void setView(const View& view);

    QLineEdit* entry() const { return _entry; }
    QListWidget* list() const { return _list; }

    /// Called when the entry's text changes.
    std::function<void()> onTyped;

private:
    QLineEdit* _entry;
    QListWidget* _list;
    QTextEdit* _text;
};

} // namespace teskel::bench
