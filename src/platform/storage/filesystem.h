// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

/// One mounted storage device.
class FileSystem
{
public:
    FileSystem() = default;
    FileSystem(const QString& path, bool removable)
        : _path(path)
        , _removable(removable)
    {
    }

    /// The mount point, without a closing slash.
    QString path() const { return _path; }
    /// Whether the medium can be taken out: SD, USB and other cards and readers.
    bool isRemovable() const { return _removable; }

private:
    QString _path;
    bool _removable = false;
};
