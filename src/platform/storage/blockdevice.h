// SPDX-License-Identifier: MIT
#pragma once

#include "platform/storage/storageroots.h"

#include <QString>

namespace teskel
{

/// One block device as sysfs describes it.
class BlockDevice
{
public:
    /// The device that the mount table calls `source` with the number `device`; not valid when
    /// sysfs knows none. The name decides, since FUSE, btrfs and device-mapper mounts carry numbers
    /// that no device has.
    static BlockDevice find(const StorageRoots& roots, const QString& source,
                            const QString& device);

    bool isValid() const { return !_directory.isEmpty(); }

    /// The device's own directory in sysfs; the same for every name that leads to the device.
    QString directory() const { return _directory; }

    /// Whether the medium can be taken out: the disk says so, hangs on USB or PCMCIA, is an SD
    /// card or a Memory Stick, or is made of such disks (encrypted cards).
    bool isRemovable() const;

private:
    explicit BlockDevice(const QString& directory);

    QString _directory;
};

} // namespace teskel
