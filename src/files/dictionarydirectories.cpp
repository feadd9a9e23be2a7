// SPDX-License-Identifier: MIT
#include "files/dictionarydirectories.h"

#include "platform/storage/storageinfo.h"

#include <QDir>
#include <QtGlobal>

using namespace Qt::StringLiterals;

namespace teskel
{

QList<DictionaryDirectory> dictionaryDirectories(bool removableOnly)
{
    QList<DictionaryDirectory> directories;
    if (!removableOnly)
        directories.append({qEnvironmentVariable("QPEDIR") + u"/teskel"_s, false});
    const StorageInfo storage(nullptr);
    for (const FileSystem& fileSystem : storage.fileSystems()) {
        if (fileSystem.isRemovable())
            directories.append({fileSystem.path() + u"/QtPalmtop/teskel"_s, true});
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
    return listing.entryInfoList({u"*.PDB"_s});
}

} // namespace teskel
