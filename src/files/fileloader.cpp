// SPDX-License-Identifier: MIT
#include "files/fileloader.h"

#include "files/dictionarydirectories.h"

QList<QTeskelFileInfo> FileLoader::getFileList(bool removableOnly)
{
    _fileList.clear();
    const QList<teskel::DictionaryDirectory> directories =
        teskel::dictionaryDirectories(removableOnly);
    for (const teskel::DictionaryDirectory& directory : directories)
        append(directory.path, directory.removable);
    return _fileList;
}

void FileLoader::append(const QString& directory, bool removable)
{
    const QFileInfoList entries = teskel::dictionaryEntries(directory);
    for (const QFileInfo& entry : entries) {
        if (removable || !entry.isSymLink())
            _fileList.append({entry, removable});
    }
}
