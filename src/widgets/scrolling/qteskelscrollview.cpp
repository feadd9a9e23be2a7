// SPDX-License-Identifier: MIT
#include "widgets/scrolling/qteskelscrollview.h"

#include "widgets/scrolling/saturatedsum.h"
#include "widgets/scrolling/scrollviewchildren.h"

#include <QPaintEvent>
#include <QPainter>
#include <QPointer>

using namespace Qt::StringLiterals;

namespace
{
constexpr int usualLineStep = 20;
constexpr int visibleMargin = 50;

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
    , _children(std::make_unique<teskel::ScrollViewChildren>())
{
    setObjectName(QString::fromLatin1(name));
    if (flags != Qt::WindowFlags())
        setWindowFlags(flags);
    setFrameStyle(QFrame::StyledPanel | QFrame::Sunken);
    auto* viewport = new QWidget;
    setViewport(viewport);
    viewport->setObjectName(u"qt_viewport"_s);
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

QTeskelScrollView::~QTeskelScrollView()
{
    // The children die later, with the viewport, and must not report to what is gone by then.
    while (QWidget* child = _children->first())
        removeChild(child);
}

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
    const bool wasHidden =
        child->testAttribute(Qt::WA_WState_ExplicitShowHide) && child->isHidden();
    child->setParent(clipper());
    _children->place(child, {x, y});
    child->installEventFilter(this);
    // While it is destroyed a child is no widget any more; only its address counts.
    connect(child, &QObject::destroyed, this, [this](QObject* dead) { _children->remove(dead); });
    child->move(QPoint(x, y) - (_clipper == nullptr ? _offset : QPoint()));
    child->setVisible(!wasHidden);
    followFirstChild();
}

void QTeskelScrollView::moveChild(QWidget* child, int x, int y)
{
    if (child == nullptr || !_children->contains(child))
        return;
    _children->place(child, {x, y});
    child->move(QPoint(x, y) - (_clipper == nullptr ? _offset : QPoint()));
}

void QTeskelScrollView::removeChild(QWidget* child)
{
    if (child == nullptr || !_children->contains(child))
        return;
    child->removeEventFilter(this);
    child->disconnect(this);
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
    return _clipper == nullptr ? viewport() : _clipper;
}

void QTeskelScrollView::enableClipper(bool enable)
{
    if (!_children->isEmpty()) {
        qWarning("May only call QScrollView::enableClipper() before adding widgets");
        return;
    }
    if (enable == (_clipper != nullptr))
        return;
    if (enable) {
        _clipper = new QTeskelClipperWidget(viewport());
        _clipper->setGeometry(QRect(-_offset, _contentsSize));
        _clipper->show();
    } else {
        delete _clipper;
        _clipper = nullptr;
    }
}

void QTeskelScrollView::setMargins(int left, int top, int right, int bottom)
{
    setViewportMargins(left, top, right, bottom);
}

void QTeskelScrollView::updateContents(const QRect& contents)
{
    viewport()->update(contents.translated(-_offset));
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
    if (_clipper != nullptr)
        _clipper->resize(newSize);
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

void QTeskelScrollView::ensureVisible(int x, int y)
{
    ensureVisible(x, y, visibleMargin, visibleMargin);
}

void QTeskelScrollView::ensureVisible(int x, int y, int xmargin, int ymargin)
{
    setContentsPos(revealing(x, xmargin, _offset.x(), visibleWidth(), contentsWidth()),
                   revealing(y, ymargin, _offset.y(), visibleHeight(), contentsHeight()));
}

void QTeskelScrollView::center(int x, int y)
{
    center(x, y, 1.0F, 1.0F);
}

void QTeskelScrollView::center(int x, int y, float xmargin, float ymargin)
{
    ensureVisible(x, y, qRound(xmargin * static_cast<float>(visibleWidth()) / 2.0F),
                  qRound(ymargin * static_cast<float>(visibleHeight()) / 2.0F));
}

void QTeskelScrollView::setEnabled(bool enable)
{
    QAbstractScrollArea::setEnabled(enable);
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
    if (_clipper != nullptr)
        _clipper->move(-_offset);
    else
        _children->moveAll(_offset);
    if (_staticBackground || !_children->isEmpty() || _clipper != nullptr)
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

bool QTeskelScrollView::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::Resize && !_children->isEmpty() && watched == _children->first())
        followFirstChild();
    return QAbstractScrollArea::eventFilter(watched, event);
}
