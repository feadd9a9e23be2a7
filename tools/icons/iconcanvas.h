// SPDX-License-Identifier: MIT
#pragma once

#include <QColor>
#include <QImage>
#include <QPainter>
#include <QPolygonF>

namespace teskel
{

/// A square picture drawn on a grid of 24 units, whose edges always fall on whole pixels.
class IconCanvas
{
public:
    explicit IconCanvas(int size);
    IconCanvas(const IconCanvas&) = delete;
    IconCanvas& operator=(const IconCanvas&) = delete;
    ~IconCanvas() = default;

    /// Grid units as whole pixels.
    qreal at(qreal units) const;
    /// A line width in whole pixels, at least one.
    qreal width(qreal units) const;

    void box(qreal left, qreal top, qreal right, qreal bottom, const QColor& colour);
    /// A filled box with rounded corners.
    void roundBox(qreal left, qreal top, qreal right, qreal bottom, qreal radius,
                  const QColor& colour);
    /// The outline of a box, drawn inside of its edges.
    void frame(qreal left, qreal top, qreal right, qreal bottom, qreal line, const QColor& colour);
    void polygon(const QPolygonF& points, const QColor& colour);
    void line(QPointF from, QPointF to, qreal line, const QColor& colour);
    void disc(qreal x, qreal y, qreal radius, const QColor& colour);
    /// Makes a box transparent again.
    void clear(qreal left, qreal top, qreal right, qreal bottom);

    QImage finish();

private:
    QRectF rect(qreal left, qreal top, qreal right, qreal bottom) const;

    QImage _image;
    qreal _scale;
    QPainter _painter;
};

} // namespace teskel
