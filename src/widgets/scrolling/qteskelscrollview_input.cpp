// SPDX-License-Identifier: MIT
// The wheel and the pointer in QTeskelScrollView.
#include "widgets/scrolling/qteskelscrollview.h"

#include <QCoreApplication>
#include <QMouseEvent>
#include <QWheelEvent>

/// A wheel event of the window system that the viewport leaves unaccepted propagates here, so one
/// place serves both; one that the program sends to the viewport does not propagate.
bool QTeskelScrollView::event(QEvent* event)
{
    if (event->type() != QEvent::Wheel)
        return QAbstractScrollArea::event(event);
    wheelEvent(static_cast<QWheelEvent*>(event));
    return true;
}

bool QTeskelScrollView::viewportEvent(QEvent* event)
{
    if (event->type() != QEvent::Wheel)
        return QAbstractScrollArea::viewportEvent(event);
    if (event->spontaneous()) {
        event->ignore();
        return false;
    }
    auto* wheel = static_cast<QWheelEvent*>(event);
    offerWheel(wheel, wheel->position());
    return true;
}

void QTeskelScrollView::wheelEvent(QWheelEvent* event)
{
    offerWheel(event, viewport()->mapFrom(this, event->position()));
}

/// A wheel that turns mostly sideways moves the contents sideways.
void QTeskelScrollView::offerWheel(QWheelEvent* event, QPointF position)
{
    QWheelEvent offered(position, event->globalPosition(), event->pixelDelta(), event->angleDelta(),
                        event->buttons(), event->modifiers(), event->phase(), event->inverted(),
                        event->source());
    offered.ignore();
    viewportWheelEvent(&offered);
    event->setAccepted(offered.isAccepted());
    if (event->isAccepted())
        return;
    const QPoint angle = event->angleDelta();
    const bool sideways = qAbs(angle.x()) > qAbs(angle.y());
    QCoreApplication::sendEvent(sideways ? _horizontalBar : _verticalBar, event);
}

void QTeskelScrollView::viewportWheelEvent(QWheelEvent* event)
{
    event->ignore();
}

void QTeskelScrollView::passToContents(QMouseEvent* event, ContentsHandler handler)
{
    QMouseEvent mapped(event->type(), event->position() + _offset, event->globalPosition(),
                       event->button(), event->buttons(), event->modifiers());
    (this->*handler)(&mapped);
    event->setAccepted(mapped.isAccepted());
}

void QTeskelScrollView::mousePressEvent(QMouseEvent* event)
{
    passToContents(event, &QTeskelScrollView::contentsMousePressEvent);
}

void QTeskelScrollView::mouseReleaseEvent(QMouseEvent* event)
{
    passToContents(event, &QTeskelScrollView::contentsMouseReleaseEvent);
}

void QTeskelScrollView::mouseDoubleClickEvent(QMouseEvent* event)
{
    passToContents(event, &QTeskelScrollView::contentsMouseDoubleClickEvent);
}

void QTeskelScrollView::mouseMoveEvent(QMouseEvent* event)
{
    passToContents(event, &QTeskelScrollView::contentsMouseMoveEvent);
}

void QTeskelScrollView::contentsMousePressEvent(QMouseEvent* event)
{
    event->ignore();
}

void QTeskelScrollView::contentsMouseReleaseEvent(QMouseEvent* event)
{
    event->ignore();
}

void QTeskelScrollView::contentsMouseDoubleClickEvent(QMouseEvent* event)
{
    event->ignore();
}

void QTeskelScrollView::contentsMouseMoveEvent(QMouseEvent* event)
{
    event->ignore();
}
