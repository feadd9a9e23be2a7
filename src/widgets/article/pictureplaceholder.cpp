// SPDX-License-Identifier: MIT
#include "widgets/article/pictureplaceholder.h"

#include <QTextFormat>

#include <algorithm>

namespace teskel
{

namespace
{
constexpr double iconSize = 16;
}

QSizeF PicturePlaceholder::intrinsicSize(QTextDocument*, int, const QTextFormat& format)
{
    const QTextImageFormat picture = format.toImageFormat();
    const auto length = [&picture](QTextFormat::Property property, double asked) {
        return picture.hasProperty(property) ? std::max(0.0, asked) : iconSize;
    };
    return {length(QTextFormat::ImageWidth, picture.width()),
            length(QTextFormat::ImageHeight, picture.height())};
}

void PicturePlaceholder::drawObject(QPainter*, const QRectF&, QTextDocument*, int,
                                    const QTextFormat&)
{
}

} // namespace teskel
