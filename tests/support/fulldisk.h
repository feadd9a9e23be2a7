// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QTemporaryDir>

namespace teskel::test
{

/// A real file system of a few pages, which a test fills up. It is mounted where this process and
/// its children alone see it, so root is not needed where the kernel lets everybody do that.
class FullDisk
{
public:
    /// To be called once, first thing in main(): moves the process into mounts of its own. Without
    /// it, or when it returns false, nothing can be mounted.
    static bool enterOwnMounts();

    FullDisk();
    ~FullDisk();
    Q_DISABLE_COPY_MOVE(FullDisk)

    [[nodiscard]] bool isMounted() const { return _isMounted; }
    [[nodiscard]] QString path(const QString& name) const { return _place.filePath(name); }

    /// Takes all space but `left` bytes, a multiple of 4096. Files can still be made, but not
    /// filled.
    [[nodiscard]] bool fill(qint64 left = 0) const;

private:
    static bool _hasOwnMounts;

    QTemporaryDir _place;
    bool _isMounted = false;
};

} // namespace teskel::test
