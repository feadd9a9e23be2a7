// SPDX-License-Identifier: MIT
#pragma once

#include "widgets/listbox/qteskellistboxitem.h"

/// A list box item that shows one line of text.
class QTeskelListBoxText : public QTeskelListBoxItem
{
public:
    explicit QTeskelListBoxText(const QString& text = QString());
    explicit QTeskelListBoxText(QTeskelListBox* listBox, const QString& text = QString());
    QTeskelListBoxText(QTeskelListBox* listBox, const QString& text, QTeskelListBoxItem* after);

    void paint(QPainter* painter) override;
    /// The text's width and 6 pixels.
    int width(const QTeskelListBox* listBox) const override;
    /// The font's line spacing and 2 pixels.
    int height(const QTeskelListBox* listBox) const override;
};
