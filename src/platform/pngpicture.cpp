// SPDX-License-Identifier: MIT
#include "platform/pngpicture.h"

#include <png.h>

namespace teskel
{

QImage pictureFromPng(QByteArrayView png)
{
    png_image header = {};
    header.version = PNG_IMAGE_VERSION;
    if (png_image_begin_read_from_memory(&header, png.data(),
                                         static_cast<std::size_t>(png.size())) == 0)
        return {};
    header.format = Q_BYTE_ORDER == Q_LITTLE_ENDIAN ? PNG_FORMAT_BGRA : PNG_FORMAT_ARGB;
    QImage picture(static_cast<int>(header.width), static_cast<int>(header.height),
                   QImage::Format_ARGB32);
    const bool isRead =
        !picture.isNull() &&
        png_image_finish_read(&header, nullptr, picture.bits(),
                              static_cast<png_int_32>(picture.bytesPerLine()), nullptr) != 0;
    png_image_free(&header);
    return isRead ? picture : QImage();
}

} // namespace teskel
