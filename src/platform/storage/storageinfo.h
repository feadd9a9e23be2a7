// SPDX-License-Identifier: MIT
#pragma once

#include "platform/storage/filesystem.h"
#include "platform/storage/storageroots.h"

#include <QList>
#include <QObject>

/// The mounted storage devices, in the order of the mount table.
///
/// A device counts once, at the first of its mounts that can be reached: no other mount hides it,
/// and the user may go to it. When the user may go to none, the first counts. Bind mounts, network
/// and kernel file systems are left out. The list follows the "QPE/Card" channel while the object
/// lives.
class StorageInfo : public QObject
{
    Q_OBJECT

public:
    explicit StorageInfo(QObject* parent = nullptr);

    const QList<FileSystem>& fileSystems() const { return _fileSystems; }

    /// Reads the mount table anew.
    void update();

    /// Where every later reading looks.
    static void setRoots(const StorageRoots& roots);
    static StorageRoots roots();

private:
    QList<FileSystem> _fileSystems;
};
