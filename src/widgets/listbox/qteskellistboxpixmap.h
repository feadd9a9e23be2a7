// SPDX-License-Identifier: MIT
#pragma once

#include "widgets/listbox/qteskellistboxitem.h"

#include <QPixmap>

/// A list box item that shows a picture, with a text behind it or without.
class QTeskelListBoxPixmap : public QTeskelListBoxItem
{
public:
    explicit QTeskelListBoxPixmap(const QPixmap& pixmap, const QString& text = QString());
    QTeskelListBoxPixmap(QTeskelListBox* listBox, const QPixmap& pixmap,
                         const QString& text = QString());
    QTeskelListBoxPixmap(QTeskelListBox* listBox, const QPixmap& pixmap, const QString& text,
                         QTeskelListBoxItem* after);

    const QPixmap* pixmap() const override { return &_pixmap; }
    void paint(QPainter* painter) override;
    int width(const QTeskelListBox* listBox) const override;
    int height(const QTeskelListBox* listBox) const override;

private:
    QPixmap _pixmap;
};
