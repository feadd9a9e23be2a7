// SPDX-License-Identifier: MIT
#include "widgets/listbox/qteskellistboxpixmap.h"

#include <QFontMetrics>
#include <QPainter>

namespace
{
constexpr int leftMargin = 3;
constexpr int textGap = 2;
constexpr int widthMargins = 6;
constexpr int heightMargins = 2;

QSize sizeOf(const QPixmap& pixmap)
{
    return pixmap.deviceIndependentSize().toSize();
}
} // namespace

QTeskelListBoxPixmap::QTeskelListBoxPixmap(const QPixmap& pixmap, const QString& text)
    : _pixmap(pixmap)
{
    QTeskelListBoxItem::setText(text);
}

QTeskelListBoxPixmap::QTeskelListBoxPixmap(QTeskelListBox* listBox, const QPixmap& pixmap,
                                           const QString& text)
    : QTeskelListBoxItem(listBox)
    , _pixmap(pixmap)
{
    QTeskelListBoxItem::setText(text);
}

QTeskelListBoxPixmap::QTeskelListBoxPixmap(QTeskelListBox* listBox, const QPixmap& pixmap,
                                           const QString& text, QTeskelListBoxItem* after)
    : QTeskelListBoxItem(listBox, after)
    , _pixmap(pixmap)
{
    QTeskelListBoxItem::setText(text);
}

void QTeskelListBoxPixmap::paint(QPainter* painter)
{
    const QSize size = sizeOf(_pixmap);
    const QFontMetrics metrics = painter->fontMetrics();
    const int rowHeight = text().isEmpty()
                              ? size.height()
                              : qMax(size.height(), metrics.lineSpacing() + heightMargins);
    painter->drawPixmap(leftMargin, (rowHeight - size.height()) / 2, _pixmap);
    if (!text().isEmpty()) {
        painter->drawText(leftMargin + size.width() + textGap,
                          (rowHeight - metrics.height()) / 2 + metrics.ascent(), text());
    }
}

int QTeskelListBoxPixmap::width(const QTeskelListBox* listBox) const
{
    const int width = sizeOf(_pixmap).width() + widthMargins;
    if (text().isEmpty() || listBox == nullptr)
        return width;
    return width + textGap +
           teskel::ListBoxItemHost::fontMetrics(listBox).horizontalAdvance(text());
}

int QTeskelListBoxPixmap::height(const QTeskelListBox* listBox) const
{
    const int height = sizeOf(_pixmap).height();
    if (text().isEmpty() || listBox == nullptr)
        return height;
    return qMax(height,
                teskel::ListBoxItemHost::fontMetrics(listBox).lineSpacing() + heightMargins);
}
