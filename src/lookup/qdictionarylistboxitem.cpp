// SPDX-License-Identifier: MIT
#include "lookup/qdictionarylistboxitem.h"

QDictionaryListBoxItem::QDictionaryListBoxItem(const QString& text, CursorPosition position)
    : QTeskelListBoxText(text)
    , _position(position)
{
}

QDictionaryListBoxItem::~QDictionaryListBoxItem() = default;

void QDictionaryListBoxItem::setText(const QString& text)
{
    QTeskelListBoxText::setText(text);
}
