// SPDX-License-Identifier: MIT
#pragma once

#include "app/teskelmainwindow.h"
#include "tests/lookup/messagewatch.h"

#include <QString>

#include <memory>

class QDictionaryListBox;
class QTeskelComboBox;
class QTeskelEdit;

namespace teskel::test
{

/// The reader's window, shown without a display, in the hands of somebody who tries everything.
class WindowUse
{
public:
    WindowUse();
    Q_DISABLE_COPY_MOVE(WindowUse)
    ~WindowUse();

    /// Opens a file, as a file menu would. What is said about it is dismissed.
    void open(const QString& path);
    /// Replaces the entry's text, letter by letter.
    void type(const QString& text);
    /// Goes on by pages until the list stays where it is, or `mostPages`; returns the word there.
    QString walkDown(int mostPages);
    QString walkUp(int mostPages);
    /// Lines and single words, past both ends of the list.
    void scroll();
    void randomWords(int times);
    /// Carries the article's words to the dictionary of the opposite direction.
    void crossLookup();
    void copyAndPaste();

    [[nodiscard]] QString articleText() const;
    [[nodiscard]] QString currentWord() const;
    /// What the caption says.
    [[nodiscard]] QString title() const { return _window->windowTitle(); }

private:
    QString walk(Qt::Key page, Qt::Key end, int mostPages);
    void press(Qt::Key key, int times = 1);

    MessageWatch _messages;
    std::unique_ptr<TeskelMainWindow> _window;
    QTeskelComboBox* _entry = nullptr;
    QDictionaryListBox* _list = nullptr;
    QTeskelEdit* _article = nullptr;
};

} // namespace teskel::test
