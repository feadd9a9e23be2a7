// SPDX-License-Identifier: MIT
#include "platform/resource.h"

#include "platform/pictureiconengine.h"
#include "platform/pngpicture.h"

#include <QFile>
#include <QGuiApplication>
#include <QImageReader>
#include <QResource>
#include <QStringList>

using namespace Qt::StringLiterals;

// A linker drops the pictures of a static library unless something asks for them.
static void registerPictures()
{
    Q_INIT_RESOURCE(pics);
}

namespace
{

QString compiledIn(const QString& name)
{
    static const bool registered = (registerPictures(), true);
    Q_UNUSED(registered);
    return ":/pics/"_L1 + name + ".png"_L1;
}

QString installed(const QString& name)
{
    const QString root = qEnvironmentVariable("QPEDIR");
    if (root.isEmpty())
        return {};
    QList<QByteArray> formats{"png", "xpm"};
    formats += QImageReader::supportedImageFormats();
    for (const QByteArray& format : std::as_const(formats)) {
        QString path = root + "/pics/"_L1 + name + u'.' + QLatin1String(format);
        if (QFile::exists(path))
            return path;
    }
    return {};
}

} // namespace

QPixmap Resource::loadPixmap(const QString& name)
{
    if (!QFile::exists(compiledIn(name)))
        return QPixmap(installed(name));
    return QPixmap(compiledIn(qApp->devicePixelRatio() > 1 ? name + "@2x"_L1 : name));
}

QIcon Resource::loadIcon(const QString& name)
{
    if (!QFile::exists(compiledIn(name))) {
        const QPixmap pixmap = loadPixmap(name);
        return pixmap.isNull() ? QIcon() : QIcon(pixmap);
    }
    // Every size stands for itself: QIcon scales the wrong one once it knows of an "@2x" file.
    const auto read = [name](int size) {
        const QResource file(compiledIn(u"%1-%2"_s.arg(name).arg(size)));
        return teskel::pictureFromPng(file.uncompressedData());
    };
    return QIcon(new teskel::PictureIconEngine({16, 20, 24, 32, 40, 48}, read));
}
