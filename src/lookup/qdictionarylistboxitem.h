// SPDX-License-Identifier: MIT
#pragma once

#include "dictionary/cursorposition.h"
#include "widgets/listbox/qteskellistboxtext.h"

/// One row of the word list: a headword and where it stands in the dictionary.
class QDictionaryListBoxItem : public QTeskelListBoxText
{
public:
    /// @param position the word's address, or the invalid position for an empty row
    QDictionaryListBoxItem(const QString& text, CursorPosition position);
    ~QDictionaryListBoxItem() override;
    Q_DISABLE_COPY_MOVE(QDictionaryListBoxItem)

    CursorPosition getCursorPosition() const { return _position; }
    void setCursorPosition(CursorPosition position) { _position = position; }

    /// Replaces the text; the list repaints at its next update.
    void setText(const QString& text) override;

private:
    CursorPosition _position;
};
