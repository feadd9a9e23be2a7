// SPDX-License-Identifier: MIT
#include "files/dictionarydirectories.h"

#include "platform/storage/storageinfo.h"

#include <QDir>
#include <QtGlobal>

namespace teskel
{

QList<DictionaryDirectory> dictionaryDirectories(bool removableOnly)
{
    QList<DictionaryDirectory> directories;
    if (!removableOnly)
        directories.append({qEnvironmentVariable("QPEDIR") + QStringLiteral("/teskel"), false});
    const StorageInfo storage(nullptr);
    for (const FileSystem& fileSystem : storage.fileSystems()) {
        if (fileSystem.isRemovable())
            directories.append({fileSystem.path() + QStringLiteral("/QtPalmtop/teskel"), true});
    }
    return directories;
}

QFileInfoList dictionaryEntries(const QString& directory)
{
    // From an absolute directory, so that the entries keep their meaning when the current
    // directory changes.
    const QDir listing(QDir(directory).absolutePath(), QString(), QDir::Name | QDir::IgnoreCase,
                       QDir::Dirs | QDir::Files | QDir::Drives);
    if (!listing.exists())
        return {};
    return listing.entryInfoList({QStringLiteral("*.PDB")});
}

} // namespace teskel
