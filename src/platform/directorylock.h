// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <chrono>

namespace teskel
{

/// Keeps other processes that ask for the same lock out of a directory while it lives, so that what
/// one reads, changes and writes back is not lost to another.
///
/// It is a lock on the open directory itself: there is no file that could stay behind, it works
/// where nothing can be written, and it ends with its process. Where it cannot be had in time, or
/// not at all, nothing is locked, and what it was asked for goes on.
class DirectoryLock
{
public:
    static constexpr std::chrono::milliseconds usualWait{250};

    explicit DirectoryLock(const QString& directory, std::chrono::milliseconds wait = usualWait);
    ~DirectoryLock();
    Q_DISABLE_COPY_MOVE(DirectoryLock)

    [[nodiscard]] bool isHeld() const { return _descriptor >= 0; }

private:
    int _descriptor;
};

} // namespace teskel
