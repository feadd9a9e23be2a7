// SPDX-License-Identifier: MIT
#pragma once

#include "widgets/scrolling/qteskelscrollbar.h"

#include <QAbstractScrollArea>
#include <QMouseEvent>
#include <QWheelEvent>

#include <memory>

namespace teskel
{
class ScrollViewChildren;
}

/// A frame that shows a part of larger contents, painted or made of child widgets.
///
/// Positions called "contents" count from the upper left corner of the whole contents, those called
/// "viewport" from that of the visible part. All sizes are in pixels.
///
/// Slots of contentsMoving() and of the bars may delete the view while it scrolls, but not while it
/// or a child is given another size.
class QTeskelScrollView : public QAbstractScrollArea
{
    Q_OBJECT

public:
    /// How the size of the contents is decided: `Default` turns into `AutoOne` when a child is
    /// added and into `Manual` when resizeContents() is called; `AutoOne` follows the first child's
    /// size.
    enum ResizePolicy { Default, Manual, AutoOne };
    Q_ENUM(ResizePolicy)
    /// When a scroll bar shows; `Auto` shows it when there is something to scroll.
    enum ScrollBarMode { Auto, AlwaysOff, AlwaysOn };
    Q_ENUM(ScrollBarMode)

    explicit QTeskelScrollView(QWidget* parent = nullptr, const char* name = nullptr,
                               Qt::WindowFlags flags = {});
    ~QTeskelScrollView() override;
    Q_DISABLE_COPY_MOVE(QTeskelScrollView)

    /// Puts `child` at a contents position; the view becomes its parent, and a child that is there
    /// already moves. Null is ignored.
    void addChild(QWidget* child, int x = 0, int y = 0);
    void moveChild(QWidget* child, int x, int y);
    /// Forgets `child`, which stays a child widget where it is.
    void removeChild(QWidget* child);
    /// The contents position of `child`, 0 for a widget that was not added.
    int childX(const QWidget* child) const;
    int childY(const QWidget* child) const;

    ResizePolicy resizePolicy() const { return _resizePolicy; }
    void setResizePolicy(ResizePolicy policy);
    ScrollBarMode hScrollBarMode() const;
    ScrollBarMode vScrollBarMode() const;
    virtual void setHScrollBarMode(ScrollBarMode mode);
    virtual void setVScrollBarMode(ScrollBarMode mode);
    QTeskelScrollBar* horizontalScrollBar() const { return _horizontalBar; }
    QTeskelScrollBar* verticalScrollBar() const { return _verticalBar; }

    /// The widget that is the parent of the children: the viewport, or the clipper when enabled.
    QWidget* clipper() const;
    /// Lets all children move as one widget, or each by itself again. While there are children it
    /// warns and does nothing.
    void enableClipper(bool enable);
    /// With a static background, scrolling repaints instead of moving what is on the screen.
    void setStaticBackground(bool enable) { _staticBackground = enable; }
    bool hasStaticBackground() const { return _staticBackground; }

    /// Room between the frame and the viewport.
    void setMargins(int left, int top, int right, int bottom)
    {
        setViewportMargins(left, top, right, bottom);
    }
    int leftMargin() const { return viewportMargins().left(); }
    int topMargin() const { return viewportMargins().top(); }
    int rightMargin() const { return viewportMargins().right(); }
    int bottomMargin() const { return viewportMargins().bottom(); }

    int visibleWidth() const { return viewport()->width(); }
    int visibleHeight() const { return viewport()->height(); }
    int contentsWidth() const { return _contentsSize.width(); }
    int contentsHeight() const { return _contentsSize.height(); }
    /// The contents position that is shown in the upper left corner.
    int contentsX() const { return _offset.x(); }
    int contentsY() const { return _offset.y(); }

    QPoint contentsToViewport(QPoint contents) const { return contents - _offset; }
    QPoint viewportToContents(QPoint viewport) const { return viewport + _offset; }
    /// Schedules a repaint of a rectangle of the contents.
    void updateContents(const QRect& contents)
    {
        viewport()->update(contents.translated(-_offset));
    }

public slots:
    virtual void resizeContents(int width, int height);
    void scrollBy(int dx, int dy);
    /// Shows the contents from (x, y) on, as far as the scroll ranges allow.
    virtual void setContentsPos(int x, int y);
    /// Scrolls just far enough to show (x, y) with 50 pixels around it.
    void ensureVisible(int x, int y) { ensureVisible(x, y, 50, 50); }
    /// As above with margins of one's own; they are cut to half the viewport, and to 0 in a
    /// direction in which the contents fit.
    void ensureVisible(int x, int y, int xmargin, int ymargin);
    /// Shows (x, y) in the middle.
    void center(int x, int y) { center(x, y, 1.0F, 1.0F); }
    /// Shows (x, y) with margins given as a part of half the viewport: 0 allows the edge, 1 is the
    /// middle.
    void center(int x, int y, float xmargin, float ymargin);
    /// Gives both bars the range and page step that the sizes demand.
    void updateScrollBars();
    void setEnabled(bool enable) { QAbstractScrollArea::setEnabled(enable); }
    /// Moves the contents, and the bar, so that column `x` is the leftmost one shown, as far as the
    /// scroll range allows.
    void hslide(int x);
    /// Moves the contents, and the bar, so that line `y` is the topmost one shown.
    void vslide(int y);

signals:
    /// The contents are about to move to this position.
    void contentsMoving(int x, int y);

protected:
    /// Paints a rectangle of the contents; the painter counts in contents positions.
    virtual void drawContents(QPainter* painter, const QRect& clip);
    /// Mouse events with positions in the contents; the bases ignore them.
    virtual void contentsMousePressEvent(QMouseEvent* event) { event->ignore(); }
    virtual void contentsMouseReleaseEvent(QMouseEvent* event) { event->ignore(); }
    virtual void contentsMouseDoubleClickEvent(QMouseEvent* event) { event->ignore(); }
    virtual void contentsMouseMoveEvent(QMouseEvent* event) { event->ignore(); }
    /// Offered each wheel event first, with positions in the viewport; the base ignores it.
    virtual void viewportWheelEvent(QWheelEvent* event) { event->ignore(); }

    bool event(QEvent* event) override;
    bool viewportEvent(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override
    {
        passToContents(event, &QTeskelScrollView::contentsMousePressEvent);
    }
    void mouseReleaseEvent(QMouseEvent* event) override
    {
        passToContents(event, &QTeskelScrollView::contentsMouseReleaseEvent);
    }
    void mouseDoubleClickEvent(QMouseEvent* event) override
    {
        passToContents(event, &QTeskelScrollView::contentsMouseDoubleClickEvent);
    }
    void mouseMoveEvent(QMouseEvent* event) override
    {
        passToContents(event, &QTeskelScrollView::contentsMouseMoveEvent);
    }
    void wheelEvent(QWheelEvent* event) override;
    void scrollContentsBy(int dx, int dy) override;

private:
    using ContentsHandler = void (QTeskelScrollView::*)(QMouseEvent*);
    void passToContents(QMouseEvent* event, ContentsHandler handler);
    void offerWheel(QWheelEvent* event, QPointF position);
    QPoint barValues() const { return {_horizontalBar->value(), _verticalBar->value()}; }
    /// Moves the contents to where the bars stand.
    void followBars();
    void setContentsSize(QSize size);
    void followFirstChild();

    QTeskelScrollBar* _horizontalBar;
    QTeskelScrollBar* _verticalBar;
    std::unique_ptr<teskel::ScrollViewChildren> _children;
    QSize _contentsSize{0, 0};
    QPoint _offset;
    ResizePolicy _resizePolicy = Default;
    bool _staticBackground = false;
};
