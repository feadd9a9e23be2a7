// SPDX-License-Identifier: MIT
#pragma once

#include "dictionary/cursorposition.h"
#include "widgets/qteskellistbox.h"

class Dictionary;
class DictionaryIterator;
class QDictionaryListBoxItem;

/// A window of a few rows onto a dictionary of any size.
///
/// The owner inserts the rows (QDictionaryListBoxItem) once; the list never adds or removes one, it
/// rewrites their words and positions. Around each navigation the parent receives, synchronously,
/// the events teskel::navigationStart and teskel::navigationFinish.
class QDictionaryListBox : public QTeskelListBox
{
    Q_OBJECT

public:
    /// @param dictionary not owned; used only for the iterators it creates
    explicit QDictionaryListBox(Dictionary* dictionary, QWidget* parent, const char* name = nullptr,
                                Qt::WindowFlags f = {});

    /// Shows the neighbourhood of `start` with `start` as the current row.
    ///
    /// `start` becomes the top row unless fewer words follow than there are rows; then the rows
    /// show the dictionary's last words.
    void fill(CursorPosition start);

    /// Scrolls by `lines` words, stopping at the ends; the current row index stays.
    ///
    /// Reports the current row by selectionChanged(QTeskelListBoxItem*) even when nothing moved.
    void move(int lines);

    /// Recomputes the rows' geometry and the scroll bars.
    void adjustScrollBars();

public slots:
    /// One word down: the scroll bar's arrow and trough below the slider.
    void nextLine();
    /// One word up: the scroll bar's arrow and trough above the slider.
    void prevLine();

protected:
    void keyPressEvent(QKeyEvent* e) override;
    void keyReleaseEvent(QKeyEvent* e) override;

private:
    bool isFirstRowCurrent() const;
    bool isLastRowCurrent() const;
    /// Null for an item of another kind; such an item is left alone.
    QDictionaryListBoxItem* row(int index) const;
    QDictionaryListBoxItem* firstRow() const;
    void tellParent(QEvent::Type type);
    CursorPosition topNear(DictionaryIterator& iterator, CursorPosition wanted) const;
    int rewriteRows(DictionaryIterator& iterator, CursorPosition top, CursorPosition sought);

    Dictionary* _dictionary;
};
