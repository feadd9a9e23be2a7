// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

/// One mounted storage device.
class FileSystem
{
public:
    FileSystem() = default;
    FileSystem(const QString& disk, const QString& path, const QString& options, bool removable)
        : _disk(disk)
        , _path(path)
        , _options(options)
        , _removable(removable)
    {
    }

    /// The device as the mount table names it, e.g. "/dev/mmcblk0p1".
    QString disk() const { return _disk; }
    /// The mount point, without a closing slash.
    QString path() const { return _path; }
    /// Mount options, separated by commas.
    QString options() const { return _options; }
    /// Whether the medium can be taken out: SD, USB and other cards and readers.
    bool isRemovable() const { return _removable; }

private:
    QString _disk;
    QString _path;
    QString _options;
    bool _removable = false;
};
