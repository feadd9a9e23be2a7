// SPDX-License-Identifier: MIT
#include "widgets/scrolling/scrollviewchildren.h"

#include <QAbstractScrollArea>
#include <QEvent>

#include <algorithm>

using namespace Qt::StringLiterals;

QTeskelClipperWidget::QTeskelClipperWidget(QWidget* viewport)
    : QWidget(viewport)
{
    setObjectName(u"qt_clipped_viewport"_s);
}

namespace teskel
{

ScrollViewChildren::ScrollViewChildren(QAbstractScrollArea* view)
    : _view(view)
{
    _records.reserve(17);
}

QPoint ScrollViewChildren::position(const QWidget* child) const
{
    const auto record = _records.constFind(child);
    return record == _records.constEnd() ? QPoint() : QPoint(record->x, record->y);
}

void ScrollViewChildren::add(QWidget* child, QPoint contents)
{
    const bool wasHidden =
        child->testAttribute(Qt::WA_WState_ExplicitShowHide) && child->isHidden();
    child->setParent(clipper());
    _order.push_back(child);
    child->installEventFilter(this);
    // While it is destroyed a child is no widget any more; only its address counts.
    connect(child, &QObject::destroyed, this, &ScrollViewChildren::forget);
    move(child, contents);
    child->setVisible(!wasHidden);
}

void ScrollViewChildren::move(QWidget* child, QPoint contents)
{
    _records.insert(child, {child, contents.x(), contents.y()});
    place(child);
}

void ScrollViewChildren::place(QWidget* child) const
{
    child->move(position(child) - (hasClipper() ? QPoint() : _offset));
}

void ScrollViewChildren::remove(QWidget* child)
{
    child->removeEventFilter(this);
    child->disconnect(this);
    forget(child);
}

void ScrollViewChildren::forget(const QObject* child)
{
    if (_records.remove(child) > 0)
        std::erase_if(_order, [child](const QWidget* other) { return other == child; });
}

QWidget* ScrollViewChildren::clipper() const
{
    return hasClipper() ? _clipper : _view->viewport();
}

void ScrollViewChildren::enableClipper(bool enable)
{
    if (enable == hasClipper())
        return;
    if (enable) {
        _clipper = new QTeskelClipperWidget(_view->viewport());
        _clipper->setGeometry(QRect(-_offset, _contentsSize));
        _clipper->show();
    } else {
        delete _clipper;
        _clipper = nullptr;
    }
}

void ScrollViewChildren::setContentsSize(QSize size)
{
    _contentsSize = size;
    if (hasClipper())
        _clipper->resize(size);
}

void ScrollViewChildren::scrollTo(QPoint offset)
{
    _offset = offset;
    if (hasClipper()) {
        _clipper->move(-offset);
        return;
    }
    for (QWidget* child : _order)
        place(child);
}

bool ScrollViewChildren::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::Resize && watched == first())
        emit firstResized();
    return QObject::eventFilter(watched, event);
}

} // namespace teskel
