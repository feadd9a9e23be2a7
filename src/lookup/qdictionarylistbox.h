// SPDX-License-Identifier: MIT
#pragma once

#include "dictionary/cursorposition.h"
#include "widgets/listbox/qteskellistbox.h"

class Dictionary;
class DictionaryIterator;
class QDictionaryListBoxItem;

/// A window of a few rows onto a dictionary of any size.
///
/// The owner inserts the rows (QDictionaryListBoxItem) once; the list never adds or removes one, it
/// rewrites their words and positions. Around each navigation the parent receives, synchronously,
/// the events teskel::navigationStart and teskel::navigationFinish.
///
/// The scroll bar's arrows and trough, and a new size, keep the current row wholly in view; the
/// wheel and the slider scroll freely.
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

    /// Makes a row the scroll bar's line step as well, so that a tap that selects the next row
    /// leaves it where the last one was.
    void resizeContents(int width, int height) override;

public slots:
    /// One word down: the scroll bar's arrow and trough below the slider.
    void nextLine();
    /// One word up: the scroll bar's arrow and trough above the slider.
    void prevLine();

protected:
    void keyPressEvent(QKeyEvent* e) override;
    void keyReleaseEvent(QKeyEvent* e) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    bool isFirstRowCurrent() const;
    bool isLastRowCurrent() const;
    /// Whether a part of the current row is in a viewport of this height.
    bool isCurrentInView(int viewportHeight) const;
    /// Null for an item of another kind; such an item is left alone.
    QDictionaryListBoxItem* row(int index) const;
    QDictionaryListBoxItem* firstRow() const;
    void tellParent(QEvent::Type type);
    CursorPosition topNear(DictionaryIterator& iterator, CursorPosition wanted) const;
    struct Rewritten {
        int found = -1;       ///< the row that holds what is sought, -1 if none does
        bool changed = false; ///< whether any row shows another word now
    };
    Rewritten rewriteRows(DictionaryIterator& iterator, CursorPosition top, CursorPosition sought);

    Dictionary* _dictionary;
    int _viewHeight = 0; // pixels, at the last resize
};
