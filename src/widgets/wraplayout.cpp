// SPDX-License-Identifier: MIT
#include "widgets/wraplayout.h"

#include <QStyle>
#include <QWidget>

#include <algorithm>

namespace teskel
{

WrapLayout::WrapLayout(QWidget* parent)
    : QLayout(parent)
{
}

WrapLayout::~WrapLayout()
{
    qDeleteAll(_items);
}

void WrapLayout::addItem(QLayoutItem* item)
{
    _items.append(item);
}

int WrapLayout::count() const
{
    return static_cast<int>(_items.size());
}

QLayoutItem* WrapLayout::itemAt(int index) const
{
    return _items.value(index);
}

QLayoutItem* WrapLayout::takeAt(int index)
{
    return index >= 0 && index < count() ? _items.takeAt(index) : nullptr;
}

Qt::Orientations WrapLayout::expandingDirections() const
{
    return {};
}

bool WrapLayout::hasHeightForWidth() const
{
    return true;
}

int WrapLayout::heightForWidth(int width) const
{
    return arrange(QRect(0, 0, width, 0), Mode::Measure);
}

QSize WrapLayout::sizeHint() const
{
    int width = 0;
    int height = 0;
    for (const QLayoutItem* item : _items) {
        const QSize size = item->sizeHint();
        width += size.width();
        height = std::max(height, size.height());
    }
    const int gaps = std::max(count() - 1, 0) * std::max(spacing(), 0);
    return QSize(width + gaps, height).grownBy(contentsMargins());
}

QSize WrapLayout::minimumSize() const
{
    QSize minimum(0, 0);
    for (const QLayoutItem* item : _items)
        minimum = minimum.expandedTo(item->minimumSize());
    return minimum.grownBy(contentsMargins());
}

void WrapLayout::setGeometry(const QRect& rect)
{
    QLayout::setGeometry(rect);
    arrange(rect, Mode::Place);
}

/// Walks the items row by row inside `rect`; returns the height that they take with the margins.
int WrapLayout::arrange(const QRect& rect, Mode mode) const
{
    const QRect inner = rect.marginsRemoved(contentsMargins());
    const int gap = std::max(spacing(), 0);
    const QWidget* owner = parentWidget();
    const Qt::LayoutDirection direction =
        owner != nullptr ? owner->layoutDirection() : Qt::LeftToRight;
    int x = inner.left();
    int y = inner.top();
    int rowHeight = 0;
    for (QLayoutItem* item : _items) {
        const QSize hint = item->sizeHint();
        const QSize size(std::min(hint.width(), std::max(inner.width(), 0)), hint.height());
        if (rowHeight > 0 && x + size.width() > inner.right() + 1) {
            x = inner.left();
            y += rowHeight + gap;
            rowHeight = 0;
        }
        if (mode == Mode::Place)
            item->setGeometry(QStyle::visualRect(direction, inner, QRect(QPoint(x, y), size)));
        x += size.width() + gap;
        rowHeight = std::max(rowHeight, size.height());
    }
    return y + rowHeight + contentsMargins().bottom() - rect.top();
}

} // namespace teskel
