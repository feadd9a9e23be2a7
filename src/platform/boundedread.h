// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QIODevice>

#include <algorithm>

namespace teskel
{

/// What is left of `device`, or its next `most` bytes when that is more.
///
/// QIODevice::read() makes room for `most` bytes first, and QIODevice::readAll() knows no bound.
inline QByteArray readAtMost(QIODevice& device, qint64 most)
{
    constexpr qint64 blockSize = 16'384;
    QByteArray bytes;
    while (bytes.size() < most) {
        const QByteArray block = device.read(std::min(blockSize, most - bytes.size()));
        if (block.isEmpty())
            break;
        bytes += block;
    }
    return bytes;
}

} // namespace teskel
