// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QList>
#include <QString>

/// The kernel's mount table, /proc/<pid>/mountinfo.
namespace teskel
{

/// One line of the table, with its octal escapes resolved.
struct Mount {
    int id = 0;     ///< number of the mount
    int parent = 0; ///< number of the mount that the mount point lies in; it may not be listed
    QString device; ///< major and minor number, "8:17"; "0:..." where the kernel made one up
    QString root;   ///< what of the file system is mounted: "/" or a directory of it
    QString path;   ///< the mount point
    QString type;   ///< file system type
    QString source; ///< as given to mount, usually the device file
};

/// The lines of `table` in its order; lines that are no mounts are left out.
QList<Mount> parseMountTable(const QByteArray& table);

/// The mounts of `mounts` that are not hidden by others, on the same mount point or on a directory
/// above it, in the same order.
QList<Mount> visibleMounts(const QList<Mount>& mounts);

} // namespace teskel
