// SPDX-License-Identifier: MIT
#pragma once

#include <string>

namespace teskel
{

/// A file that takes its final name only when it is complete.
///
/// Until then it stands beside its target under a name of its own. It is removed when it is
/// destroyed without having been committed, and when a signal ends the program. One at a time.
class PendingFile
{
public:
    /// `target` is the final path, in the bytes of the file system.
    explicit PendingFile(std::string target);
    PendingFile(const PendingFile&) = delete;
    PendingFile& operator=(const PendingFile&) = delete;
    ~PendingFile();

    const std::string& path() const { return _path; }

    /// Makes the file's bytes last and gives it its name, replacing the file or the link that was
    /// there, but no pipe or device. On failure returns false and says why in `error`.
    bool commit(std::string& error);

private:
    std::string _target;
    std::string _path;
    bool _isCommitted = false;
};

} // namespace teskel
