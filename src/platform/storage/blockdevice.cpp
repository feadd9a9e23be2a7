// SPDX-License-Identifier: MIT
#include "platform/storage/blockdevice.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QStringList>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace teskel
{

namespace
{

// Encrypted volumes on logical volumes on arrays on partitions: more than this is a loop.
constexpr int deepestStack = 8;

QString attribute(const QString& directory, const QString& name)
{
    QFile file(directory + u'/' + name);
    if (!file.open(QIODevice::ReadOnly))
        return {};
    return QString::fromLatin1(file.read(256)).trimmed();
}

// "/dev/mapper/card" is a link to "/dev/dm-0" where udev runs; sysfs knows the name in any case.
QString directoryOfMapping(const QString& sysfs, const QString& name)
{
    const QDir devices(sysfs + "/class/block"_L1);
    const QStringList names = devices.entryList({u"dm-*"_s}, QDir::Dirs);
    for (const QString& device : names) {
        QString path = devices.filePath(device);
        if (attribute(path, u"dm/name"_s) == name)
            return path;
    }
    return {};
}

QString directoryOf(const StorageRoots& roots, const QString& source, const QString& device)
{
    static const QLatin1String devices("/dev");
    if (!source.startsWith(devices + u'/'))
        return {};
    const QString& sysfs = roots.sysfs;
    const QString target = QFileInfo(roots.dev + source.sliced(devices.size())).canonicalFilePath();
    const QString name = QFileInfo(target.isEmpty() ? source : target).fileName();
    QString byName = sysfs + "/class/block/"_L1 + name;
    if (!name.isEmpty() && QFileInfo(byName).isDir())
        return byName;
    if (source.startsWith("/dev/mapper/"_L1)) {
        QString mapping = directoryOfMapping(sysfs, QFileInfo(source).fileName());
        if (!mapping.isEmpty())
            return mapping;
    }
    const QString byNumber = sysfs + "/dev/block/"_L1 + device;
    return QFileInfo(byNumber).isDir() ? byNumber : QString();
}

bool isAsciiDigit(QChar c)
{
    return c >= u'0' && c <= u'9';
}

/// Whether sysfs calls a directory like that of a bus whose devices are pulled out: "usb1",
/// "pcmcia_socket0".
bool isHotBus(QStringView name)
{
    if (!name.startsWith("usb"_L1))
        return name.startsWith("pcmcia"_L1);
    const QStringView number = name.sliced(3);
    return !number.isEmpty() && std::all_of(number.begin(), number.end(), isAsciiDigit);
}

// Without a regular expression, which costs more to make than all else here at start.
bool hangsOnHotBus(QStringView directory)
{
    const QList<QStringView> names = directory.split(u'/');
    return names.size() > 2 && std::any_of(names.begin() + 1, names.end() - 1, isHotBus);
}

bool isRemovableDisk(const QString& directory)
{
    if (attribute(directory, u"removable"_s) == "1"_L1)
        return true;
    if (hangsOnHotBus(directory))
        return true;
    const QString name = QFileInfo(directory).fileName();
    // The slot of a built-in reader does not count as removable, nor does a soldered chip, which
    // has the type "MMC".
    if (name.startsWith("mmcblk"_L1))
        return attribute(directory, u"device/type"_s) == "SD"_L1;
    return name.startsWith("mspblk"_L1) || name.startsWith("msblk"_L1);
}

bool isRemovableStack(const QString& directory, int depth)
{
    if (directory.isEmpty() || depth > deepestStack)
        return false;
    if (QFile::exists(directory + "/partition"_L1))
        return isRemovableStack(QFileInfo(directory).path(), depth + 1);
    const QDir slaves(directory + "/slaves"_L1);
    const QFileInfoList parts = slaves.entryInfoList(QDir::Dirs | QDir::NoDotAndDotDot);
    for (const QFileInfo& part : parts) {
        if (isRemovableStack(part.canonicalFilePath(), depth + 1))
            return true;
    }
    return isRemovableDisk(directory);
}

} // namespace

BlockDevice::BlockDevice(const QString& directory)
    : _directory(directory.isEmpty() ? QString() : QFileInfo(directory).canonicalFilePath())
{
}

BlockDevice BlockDevice::find(const StorageRoots& roots, const QString& source,
                              const QString& device)
{
    return BlockDevice(directoryOf(roots, source, device));
}

bool BlockDevice::isRemovable() const
{
    return isRemovableStack(_directory, 0);
}

} // namespace teskel
