// SPDX-License-Identifier: MIT
#include "platform/storage/storageinfo.h"

#include "platform/boundedread.h"
#include "platform/qcopchannel.h"
#include "platform/storage/blockdevice.h"
#include "platform/storage/mounttable.h"

#include <QFile>
#include <QHash>

#include <fcntl.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace
{

// Far above any real table; a wrong path must not fill the memory.
constexpr qint64 largestTable = 4'194'304;

StorageRoots& currentRoots()
{
    static StorageRoots roots;
    return roots;
}

// A directory of a file system mounted elsewhere is not a second card; btrfs always mounts one of
// its subvolumes, which looks the same.
bool isWhole(const teskel::Mount& mount)
{
    return mount.root == "/"_L1 || mount.type == "btrfs"_L1;
}

bool canBeReached(const QString& directory)
{
    return ::faccessat(AT_FDCWD, QFile::encodeName(directory).constData(), X_OK, AT_EACCESS) == 0;
}

} // namespace

StorageInfo::StorageInfo(QObject* parent)
    : QObject(parent)
{
    auto* cards = new QCopChannel(QByteArrayLiteral("QPE/Card"), this);
    connect(cards, &QCopChannel::received, this, [this](const QByteArray& message) {
        if (message == QByteArrayLiteral("mtabChanged()"))
            update();
    });
    update();
}

void StorageInfo::update()
{
    _fileSystems.clear();
    const StorageRoots& roots = currentRoots();
    QFile file(roots.mountInfo);
    if (!file.open(QIODevice::ReadOnly))
        return;
    QHash<QString, qsizetype> placeOfDevice;
    const QList<teskel::Mount> mounts =
        teskel::visibleMounts(teskel::parseMountTable(teskel::readAtMost(file, largestTable)));
    for (const teskel::Mount& mount : mounts) {
        if (!isWhole(mount))
            continue;
        const auto device = teskel::BlockDevice::find(roots, mount.source, mount.device);
        if (!device.isValid())
            continue;
        const qsizetype known = placeOfDevice.value(device.directory(), -1);
        if (known < 0) {
            placeOfDevice.insert(device.directory(), _fileSystems.size());
            _fileSystems.append({mount.path, device.isRemovable()});
        } else if (!canBeReached(_fileSystems.at(known).path()) && canBeReached(mount.path)) {
            _fileSystems[known] = {mount.path, device.isRemovable()};
        }
    }
}

void StorageInfo::setRoots(const StorageRoots& roots)
{
    currentRoots() = roots;
}

StorageRoots StorageInfo::roots()
{
    return currentRoots();
}
