// SPDX-License-Identifier: MIT
#include "widgets/listbox/qteskellistboxtext.h"

#include <QFontMetrics>
#include <QPainter>

namespace
{
constexpr int leftMargin = 3;
constexpr int widthMargins = 6;
constexpr int heightMargins = 2;
} // namespace

// The text is set by the base, not by the virtual setText(): this item is not complete yet.
QTeskelListBoxText::QTeskelListBoxText(const QString& text)
{
    QTeskelListBoxItem::setText(text);
}

QTeskelListBoxText::QTeskelListBoxText(QTeskelListBox* listBox, const QString& text)
    : QTeskelListBoxItem(listBox)
{
    QTeskelListBoxItem::setText(text);
}

QTeskelListBoxText::QTeskelListBoxText(QTeskelListBox* listBox, const QString& text,
                                       QTeskelListBoxItem* after)
    : QTeskelListBoxItem(listBox, after)
{
    QTeskelListBoxItem::setText(text);
}

void QTeskelListBoxText::paint(QPainter* painter)
{
    const QFontMetrics metrics = painter->fontMetrics();
    painter->drawText(leftMargin, metrics.ascent() + metrics.leading() / 2, text());
}

int QTeskelListBoxText::width(const QTeskelListBox* listBox) const
{
    return listBox == nullptr
               ? 0
               : teskel::ListBoxItemHost::fontMetrics(listBox).horizontalAdvance(text()) +
                     widthMargins;
}

int QTeskelListBoxText::height(const QTeskelListBox* listBox) const
{
    return listBox == nullptr
               ? 0
               : teskel::ListBoxItemHost::fontMetrics(listBox).lineSpacing() + heightMargins;
}
