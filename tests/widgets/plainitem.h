// SPDX-License-Identifier: MIT
#pragma once

#include "widgets/listbox/qteskellistboxitem.h"

namespace teskel::test
{

/// An item of a fixed size that paints nothing.
class PlainItem : public QTeskelListBoxItem
{
public:
    explicit PlainItem(const QString& text = QString(), QSize size = QSize(40, 20))
        : _size(size)
    {
        QTeskelListBoxItem::setText(text);
    }
    void paint(QPainter*) override {}
    int width(const QTeskelListBox*) const override { return _size.width(); }
    int height(const QTeskelListBox*) const override { return _size.height(); }

private:
    QSize _size;
};

} // namespace teskel::test
