// SPDX-License-Identifier: MIT
#include "widgets/scrolling/qteskelscrollview.h"

#include "widgets/scrolling/saturatedsum.h"
#include "widgets/scrolling/scrollviewchildren.h"

#include <QCoreApplication>
#include <QMouseEvent>
#include <QPaintEvent>
#include <QPainter>
#include <QPointer>
#include <QWheelEvent>

using namespace Qt::StringLiterals;

namespace
{
constexpr int usualLineStep = 20;

QTeskelScrollView::ScrollBarMode modeOf(Qt::ScrollBarPolicy policy)
{
    switch (policy) {
    case Qt::ScrollBarAlwaysOff:
        return QTeskelScrollView::AlwaysOff;
    case Qt::ScrollBarAlwaysOn:
        return QTeskelScrollView::AlwaysOn;
    default:
        return QTeskelScrollView::Auto;
    }
}

Qt::ScrollBarPolicy policyOf(QTeskelScrollView::ScrollBarMode mode)
{
    switch (mode) {
    case QTeskelScrollView::AlwaysOff:
        return Qt::ScrollBarAlwaysOff;
    case QTeskelScrollView::AlwaysOn:
        return Qt::ScrollBarAlwaysOn;
    default:
        return Qt::ScrollBarAsNeeded;
    }
}

/// Where the view must begin, in one direction, to show `position` with `margin` around it.
int revealing(int position, int margin, int offset, int visible, int contents)
{
    if (contents <= visible)
        return 0;
    position = qBound(0, position, contents);
    margin = qBound(0, margin, visible / 2);
    if (position < offset + margin)
        offset = position - margin;
    else if (position >= offset + visible - margin)
        offset = position - visible + margin;
    return qBound(0, offset, contents - visible);
}
} // namespace

QTeskelScrollView::QTeskelScrollView(QWidget* parent, const char* name, Qt::WindowFlags flags)
    : QAbstractScrollArea(parent)
    , _horizontalBar(new QTeskelScrollBar(Qt::Horizontal, this, "qt_hbar"))
    , _verticalBar(new QTeskelScrollBar(Qt::Vertical, this, "qt_vbar"))
    , _children(std::make_unique<teskel::ScrollViewChildren>(this))
{
    setObjectName(QString::fromLatin1(name));
    if (flags != Qt::WindowFlags())
        setWindowFlags(flags);
    setFrameStyle(QFrame::StyledPanel | QFrame::Sunken);
    auto* viewport = new QWidget;
    setViewport(viewport);
    viewport->setObjectName(u"qt_viewport"_s);
    connect(_children.get(), &teskel::ScrollViewChildren::firstResized, this,
            &QTeskelScrollView::followFirstChild);
    setHorizontalScrollBar(_horizontalBar);
    setVerticalScrollBar(_verticalBar);
    for (QTeskelScrollBar* bar : {_horizontalBar, _verticalBar}) {
        bar->setRange(0, 0);
        bar->setLineStep(usualLineStep);
        bar->setPageStep(1);
    }
    // The contents count from their left edge in every language.
    _horizontalBar->setLayoutDirection(Qt::LeftToRight);
    connect(_horizontalBar, &QScrollBar::valueChanged, this, &QTeskelScrollView::hslide);
    connect(_verticalBar, &QScrollBar::valueChanged, this, &QTeskelScrollView::vslide);
}

/// The children die later, with the viewport, and report to nobody then.
QTeskelScrollView::~QTeskelScrollView() = default;

void QTeskelScrollView::addChild(QWidget* child, int x, int y)
{
    if (child == nullptr)
        return;
    if (_children->contains(child)) {
        moveChild(child, x, y);
        return;
    }
    if (_children->isEmpty() && _resizePolicy == Default)
        _resizePolicy = AutoOne;
    _children->add(child, {x, y});
    followFirstChild();
}

void QTeskelScrollView::moveChild(QWidget* child, int x, int y)
{
    if (child != nullptr && _children->contains(child))
        _children->move(child, {x, y});
}

void QTeskelScrollView::removeChild(QWidget* child)
{
    if (child != nullptr && _children->contains(child))
        _children->remove(child);
}

int QTeskelScrollView::childX(const QWidget* child) const
{
    return _children->position(child).x();
}

int QTeskelScrollView::childY(const QWidget* child) const
{
    return _children->position(child).y();
}

void QTeskelScrollView::setResizePolicy(ResizePolicy policy)
{
    _resizePolicy = policy;
    followFirstChild();
}

void QTeskelScrollView::followFirstChild()
{
    if (_resizePolicy == AutoOne && !_children->isEmpty())
        setContentsSize(_children->first()->size());
}

QTeskelScrollView::ScrollBarMode QTeskelScrollView::hScrollBarMode() const
{
    return modeOf(horizontalScrollBarPolicy());
}

QTeskelScrollView::ScrollBarMode QTeskelScrollView::vScrollBarMode() const
{
    return modeOf(verticalScrollBarPolicy());
}

void QTeskelScrollView::setHScrollBarMode(ScrollBarMode mode)
{
    setHorizontalScrollBarPolicy(policyOf(mode));
    updateScrollBars();
}

void QTeskelScrollView::setVScrollBarMode(ScrollBarMode mode)
{
    setVerticalScrollBarPolicy(policyOf(mode));
    updateScrollBars();
}

QWidget* QTeskelScrollView::clipper() const
{
    return _children->clipper();
}

void QTeskelScrollView::enableClipper(bool enable)
{
    if (_children->isEmpty())
        _children->enableClipper(enable);
    else
        qWarning("May only call QScrollView::enableClipper() before adding widgets");
}

void QTeskelScrollView::resizeContents(int width, int height)
{
    if (_resizePolicy == Default)
        _resizePolicy = Manual;
    setContentsSize({width, height});
}

void QTeskelScrollView::setContentsSize(QSize size)
{
    const QSize newSize = size.expandedTo({0, 0});
    if (newSize == _contentsSize)
        return;
    _contentsSize = newSize;
    _children->setContentsSize(newSize);
    viewport()->update();
    updateScrollBars();
}

void QTeskelScrollView::updateScrollBars()
{
    QSize visible = viewport()->size();
    const QSize most = maximumViewportSize();
    if (_contentsSize.width() <= most.width() && _contentsSize.height() <= most.height())
        visible = most;
    const QPointer<QTeskelScrollView> self(this);
    _horizontalBar->setPageStep(visible.width());
    _horizontalBar->setRange(0, qMax(0, _contentsSize.width() - visible.width()));
    if (!self)
        return;
    _verticalBar->setPageStep(visible.height());
    _verticalBar->setRange(0, qMax(0, _contentsSize.height() - visible.height()));
}

void QTeskelScrollView::scrollBy(int dx, int dy)
{
    setContentsPos(teskel::saturatedSum(_offset.x(), dx), teskel::saturatedSum(_offset.y(), dy));
}

void QTeskelScrollView::setContentsPos(int x, int y)
{
    const QPointer<QTeskelScrollView> self(this);
    _horizontalBar->setValue(x);
    if (self)
        _verticalBar->setValue(y);
}

void QTeskelScrollView::ensureVisible(int x, int y, int xmargin, int ymargin)
{
    setContentsPos(revealing(x, xmargin, _offset.x(), visibleWidth(), contentsWidth()),
                   revealing(y, ymargin, _offset.y(), visibleHeight(), contentsHeight()));
}

void QTeskelScrollView::center(int x, int y, float xmargin, float ymargin)
{
    ensureVisible(x, y, qRound(xmargin * static_cast<float>(visibleWidth()) / 2.0F),
                  qRound(ymargin * static_cast<float>(visibleHeight()) / 2.0F));
}

void QTeskelScrollView::hslide(int x)
{
    const QPointer<QTeskelScrollView> self(this);
    _horizontalBar->setValue(x);
    if (self)
        followBars();
}

void QTeskelScrollView::vslide(int y)
{
    const QPointer<QTeskelScrollView> self(this);
    _verticalBar->setValue(y);
    if (self)
        followBars();
}

void QTeskelScrollView::followBars()
{
    const QPoint target = barValues();
    if (target == _offset)
        return;
    const QPointer<QTeskelScrollView> self(this);
    emit contentsMoving(target.x(), target.y());
    if (!self)
        return;
    // A slot may have scrolled on.
    const QPoint offset = barValues();
    const QPoint moved = _offset - offset;
    if (moved.isNull())
        return;
    _offset = offset;
    _children->scrollTo(_offset);
    if (_staticBackground || !_children->isEmpty() || _children->hasClipper())
        viewport()->update();
    else
        viewport()->scroll(moved.x(), moved.y(), viewport()->rect());
}

/// The two slots of the bars move the contents already.
void QTeskelScrollView::scrollContentsBy(int, int) {}

void QTeskelScrollView::drawContents(QPainter*, const QRect&) {}

void QTeskelScrollView::paintEvent(QPaintEvent* event)
{
    QPainter painter(viewport());
    painter.translate(-_offset);
    drawContents(&painter, event->rect().translated(_offset));
}

void QTeskelScrollView::resizeEvent(QResizeEvent* event)
{
    QAbstractScrollArea::resizeEvent(event);
    updateScrollBars();
}

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

void QTeskelScrollView::passToContents(QMouseEvent* event, ContentsHandler handler)
{
    QMouseEvent mapped(event->type(), event->position() + _offset, event->globalPosition(),
                       event->button(), event->buttons(), event->modifiers());
    (this->*handler)(&mapped);
    event->setAccepted(mapped.isAccepted());
}
