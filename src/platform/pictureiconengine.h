// SPDX-License-Identifier: MIT
#pragma once

#include <QIcon>
#include <QIconEngine>
#include <QList>

#include <functional>
#include <map>

namespace teskel
{

/// An icon of square pictures in several sizes, each of which is read when it is first painted.
///
/// It paints what an icon does that was given the same pictures by QIcon::addFile(), which reads
/// every picture at once.
class PictureIconEngine : public QIconEngine
{
public:
    /// Reads the picture whose sides measure `size` pixels.
    using Reader = std::function<QImage(int size)>;

    /// @param sizes those that `read` can be asked for, rising; not empty
    PictureIconEngine(QList<int> sizes, Reader read);

    void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State state) override;
    QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override;
    QSize actualSize(const QSize& size, QIcon::Mode mode, QIcon::State state) override;
    /// The sizes there are pictures of; none for modes and states that are made of these.
    QList<QSize> availableSizes(QIcon::Mode mode, QIcon::State state) override;
    QIconEngine* clone() const override;

private:
    /// The smallest picture that covers `size`, else the largest.
    [[nodiscard]] int bestFor(const QSize& size) const;

    QList<int> _sizes;
    Reader _read;
    std::map<int, QIcon> _icons; ///< of the pictures that have been read, by their size
};

} // namespace teskel
