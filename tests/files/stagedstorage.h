// SPDX-License-Identifier: MIT
#pragma once

#include "platform/storage/storageroots.h"

#include <QByteArray>
#include <QString>
#include <QTemporaryDir>

/// An internal dictionary directory, cards and disks of a test's own, below one temporary
/// directory.
///
/// The platform sees them, and QPEDIR names the internal one, while the object lives.
class StagedStorage
{
public:
    StagedStorage();
    ~StagedStorage();
    StagedStorage(const StagedStorage&) = delete;
    StagedStorage& operator=(const StagedStorage&) = delete;

    /// Mounts a card at a mount point of this name; returns its dictionary directory, which exists.
    QString addCard(const QString& name);
    /// The same for a disk that cannot be taken out.
    QString addFixedDisk(const QString& name);
    /// Takes the medium out of the mount table; its files stay.
    void unmount(const QString& name);
    /// The internal dictionary directory, made at the first call.
    QString internalDirectory() const;
    /// A path below the temporary directory.
    QString path(const QString& relative) const;

    /// Makes an empty file and returns its path.
    static QString addFile(const QString& directory, const QString& name);

private:
    QString mount(const QString& name, bool removable);
    void writeMountTable();

    QTemporaryDir _root;
    QStringList _mounted;
    StorageRoots _rootsBefore;
};
