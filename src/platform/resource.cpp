// SPDX-License-Identifier: MIT
#include "platform/resource.h"

#include <QFile>
#include <QImageReader>
#include <QStringList>

namespace
{

QString compiledIn(const QString& name)
{
    return QLatin1String(":/pics/") + name + QLatin1String(".png");
}

QString installed(const QString& name)
{
    const QString root = qEnvironmentVariable("QPEDIR");
    if (root.isEmpty())
        return {};
    QList<QByteArray> formats{"png", "xpm"};
    formats += QImageReader::supportedImageFormats();
    for (const QByteArray& format : std::as_const(formats)) {
        const QString path = root + QLatin1String("/pics/") + name + u'.' + QLatin1String(format);
        if (QFile::exists(path))
            return path;
    }
    return {};
}

} // namespace

QPixmap Resource::loadPixmap(const QString& name)
{
    const QString path = compiledIn(name);
    return QPixmap(QFile::exists(path) ? path : installed(name));
}

QIcon Resource::loadIcon(const QString& name)
{
    const QPixmap pixmap = loadPixmap(name);
    if (pixmap.isNull())
        return {};
    QIcon icon(pixmap);
    for (const int size : {16, 20, 24, 32, 40, 48}) {
        const QString path = QStringLiteral(":/pics/%1-%2.png").arg(name).arg(size);
        if (QFile::exists(path))
            icon.addFile(path);
    }
    return icon;
}
