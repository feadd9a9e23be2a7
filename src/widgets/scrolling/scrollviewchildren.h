// SPDX-License-Identifier: MIT
#pragma once

#include <QHash>
#include <QPoint>
#include <QWidget>

#include <vector>

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

/// Remembers which widgets lie in a scroll view, in the order of their addition, and where.
class ScrollViewChildren
{
public:
    ScrollViewChildren() { _records.reserve(17); }

    bool isEmpty() const { return _order.empty(); }
    bool contains(const QWidget* child) const { return _records.contains(child); }
    /// Adds `child` or gives it another place.
    void place(QWidget* child, QPoint contents);
    /// Never looks into `child`, which may be half destroyed.
    void remove(const QObject* child);
    QPoint position(const QWidget* child) const;
    QWidget* first() const { return isEmpty() ? nullptr : _order.front(); }
    /// Moves every widget to its place less `offset`.
    void moveAll(QPoint offset) const;

private:
    std::vector<QWidget*> _order;
    QHash<const QObject*, QTeskelSVChildRec> _records;
};

} // namespace teskel
