// SPDX-License-Identifier: MIT
#include "widgets/scrolling/scrollviewchildren.h"

#include <algorithm>

using namespace Qt::StringLiterals;

QTeskelClipperWidget::QTeskelClipperWidget(QWidget* viewport)
    : QWidget(viewport)
{
    setObjectName(u"qt_clipped_viewport"_s);
}

namespace teskel
{

void ScrollViewChildren::place(QWidget* child, QPoint contents)
{
    if (!_records.contains(child))
        _order.push_back(child);
    _records.insert(child, {child, contents.x(), contents.y()});
}

void ScrollViewChildren::remove(const QObject* child)
{
    if (_records.remove(child) > 0)
        std::erase_if(_order, [child](const QWidget* other) { return other == child; });
}

QPoint ScrollViewChildren::position(const QWidget* child) const
{
    const auto record = _records.constFind(child);
    return record == _records.constEnd() ? QPoint() : QPoint(record->x, record->y);
}

void ScrollViewChildren::moveAll(QPoint offset) const
{
    for (QWidget* child : _order)
        child->move(position(child) - offset);
}

} // namespace teskel
