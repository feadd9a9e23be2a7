// SPDX-License-Identifier: MIT
#include "platform/pictureiconengine.h"

#include <QGuiApplication>
#include <QPainter>

#include <algorithm>
#include <utility>

namespace teskel
{

PictureIconEngine::PictureIconEngine(QList<int> sizes, Reader read)
    : _sizes(std::move(sizes))
    , _read(std::move(read))
{
}

int PictureIconEngine::bestFor(const QSize& size) const
{
    const auto best = std::find_if(_sizes.cbegin(), _sizes.cend(), [&size](int side) {
        return side * side >= size.width() * size.height();
    });
    return best == _sizes.cend() ? _sizes.constLast() : *best;
}

void PictureIconEngine::paint(QPainter* painter, const QRect& rect, QIcon::Mode mode,
                              QIcon::State state)
{
    const QPaintDevice* const device = painter->device();
    const qreal ratio =
        device == nullptr ? qGuiApp->devicePixelRatio() : device->devicePixelRatioF();
    painter->drawPixmap(rect, pixmap(rect.size() * ratio, mode, state));
}

QPixmap PictureIconEngine::pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state)
{
    const int best = bestFor(size);
    auto icon = _icons.find(best);
    if (icon == _icons.end())
        icon = _icons.emplace(best, QIcon(QPixmap::fromImage(_read(best)))).first;
    return icon->second.pixmap(size, 1.0, mode, state);
}

QSize PictureIconEngine::actualSize(const QSize& size, QIcon::Mode /*mode*/, QIcon::State /*state*/)
{
    const int best = bestFor(size);
    const QSize actual(best, best);
    return best > size.width() || best > size.height() ? actual.scaled(size, Qt::KeepAspectRatio)
                                                       : actual;
}

QList<QSize> PictureIconEngine::availableSizes(QIcon::Mode mode, QIcon::State state)
{
    QList<QSize> sizes;
    if (mode == QIcon::Normal && state == QIcon::Off) {
        for (const int side : std::as_const(_sizes))
            sizes.append(QSize(side, side));
    }
    return sizes;
}

QIconEngine* PictureIconEngine::clone() const
{
    return new PictureIconEngine(*this);
}

} // namespace teskel
