// SPDX-License-Identifier: MIT
#include "iconcanvas.h"

#include <cmath>

namespace teskel
{

namespace
{

QImage transparent(int size)
{
    QImage image(size, size, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    return image;
}

} // namespace

IconCanvas::IconCanvas(int size)
    : _image(transparent(size))
    , _scale(size / 24.0)
    , _painter(&_image)
{
    _painter.setRenderHint(QPainter::Antialiasing);
    _painter.setPen(Qt::NoPen);
}

qreal IconCanvas::at(qreal units) const
{
    return std::round(units * _scale);
}

qreal IconCanvas::width(qreal units) const
{
    return std::max(1.0, std::round(units * _scale));
}

QRectF IconCanvas::rect(qreal left, qreal top, qreal right, qreal bottom) const
{
    return {QPointF(at(left), at(top)), QPointF(at(right), at(bottom))};
}

void IconCanvas::box(qreal left, qreal top, qreal right, qreal bottom, const QColor& colour)
{
    QRectF filled = rect(left, top, right, bottom);
    filled.setSize(filled.size().expandedTo(QSizeF(1, 1)));
    _painter.fillRect(filled, colour);
}

void IconCanvas::roundBox(qreal left, qreal top, qreal right, qreal bottom, qreal radius,
                          const QColor& colour)
{
    _painter.setBrush(colour);
    _painter.drawRoundedRect(rect(left, top, right, bottom), radius * _scale, radius * _scale);
}

void IconCanvas::frame(qreal left, qreal top, qreal right, qreal bottom, qreal line,
                       const QColor& colour)
{
    const QRectF outer = rect(left, top, right, bottom);
    const qreal w = width(line);
    _painter.fillRect(QRectF(outer.left(), outer.top(), outer.width(), w), colour);
    _painter.fillRect(QRectF(outer.left(), outer.bottom() - w, outer.width(), w), colour);
    _painter.fillRect(QRectF(outer.left(), outer.top(), w, outer.height()), colour);
    _painter.fillRect(QRectF(outer.right() - w, outer.top(), w, outer.height()), colour);
}

void IconCanvas::polygon(const QPolygonF& points, const QColor& colour)
{
    QPolygonF snapped;
    for (const QPointF& point : points)
        snapped << QPointF(at(point.x()), at(point.y()));
    _painter.setBrush(colour);
    _painter.drawPolygon(snapped);
}

void IconCanvas::line(QPointF from, QPointF to, qreal line, const QColor& colour)
{
    _painter.setPen(QPen(colour, line * _scale, Qt::SolidLine, Qt::RoundCap));
    _painter.drawLine(from * _scale, to * _scale);
    _painter.setPen(Qt::NoPen);
}

void IconCanvas::disc(qreal x, qreal y, qreal radius, const QColor& colour)
{
    _painter.setBrush(colour);
    _painter.drawEllipse(QPointF(at(x), at(y)), width(radius), width(radius));
}

void IconCanvas::clear(qreal left, qreal top, qreal right, qreal bottom)
{
    _painter.setCompositionMode(QPainter::CompositionMode_Clear);
    _painter.fillRect(rect(left, top, right, bottom), Qt::transparent);
    _painter.setCompositionMode(QPainter::CompositionMode_SourceOver);
}

QImage IconCanvas::finish()
{
    _painter.end();
    return _image;
}

} // namespace teskel
