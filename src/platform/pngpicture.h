// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArrayView>
#include <QImage>

namespace teskel
{

/// The picture in a PNG file's bytes as QImage::Format_ARGB32; null when they hold none.
///
/// QImageReader would do it too, but it loads every plug-in for other formats first.
[[nodiscard]] QImage pictureFromPng(QByteArrayView png);

} // namespace teskel
