// SPDX-License-Identifier: MIT
#pragma once

#include <QHash>
#include <QPoint>
#include <QWidget>

#include <vector>

class QAbstractScrollArea;

/// A child widget of a scroll view and its place in the contents.
struct QTeskelSVChildRec {
    QWidget* child;
    int x;
    int y;
};

/// The widget that carries all children of a scroll view, so that one move scrolls them.
class QTeskelClipperWidget : public QWidget
{
    Q_OBJECT

public:
    explicit QTeskelClipperWidget(QWidget* viewport);
};

namespace teskel
{

/// Holds the widgets that lie in a scroll view, in the order of their addition, at their places.
class ScrollViewChildren : public QObject
{
    Q_OBJECT

public:
    explicit ScrollViewChildren(QAbstractScrollArea* view);

    bool isEmpty() const { return _order.empty(); }
    QWidget* first() const { return isEmpty() ? nullptr : _order.front(); }
    bool contains(const QWidget* child) const { return _records.contains(child); }
    /// The contents position of `child`, (0, 0) for a widget that was not added.
    QPoint position(const QWidget* child) const;

    /// Makes `child` a child widget of clipper() and shows it unless it was hidden on purpose.
    void add(QWidget* child, QPoint contents);
    /// Gives a widget that was added another place.
    void move(QWidget* child, QPoint contents);
    /// Forgets a widget that was added.
    void remove(QWidget* child);

    /// The widget that is the parent of the children: the viewport, or the clipper when enabled.
    QWidget* clipper() const;
    bool hasClipper() const { return _clipper != nullptr; }
    /// Only while there are no children.
    void enableClipper(bool enable);
    /// Gives the clipper, now or later, the size of the contents.
    void setContentsSize(QSize size);
    /// Shows the contents from `offset` on.
    void scrollTo(QPoint offset);

signals:
    /// The widget that was added first has another size.
    void firstResized();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    /// Never looks into `child`, which may be half destroyed.
    void forget(const QObject* child);
    void place(QWidget* child) const;

    QAbstractScrollArea* _view;
    QTeskelClipperWidget* _clipper = nullptr;
    QSize _contentsSize{0, 0};
    QPoint _offset;
    std::vector<QWidget*> _order;
    QHash<const QObject*, QTeskelSVChildRec> _records;
};

} // namespace teskel
