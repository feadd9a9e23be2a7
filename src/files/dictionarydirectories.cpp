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
    // As the name filter "*.PDB" does, which would make a regular expression of it.
    QFileInfoList entries = listing.entryInfoList();
    entries.removeIf([](const QFileInfo& entry) {
        return !entry.fileName().endsWith(".PDB"_L1, Qt::CaseInsensitive);
    });
    return entries;
}

} // namespace teskel
