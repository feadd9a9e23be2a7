// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <cstdio>
#include <string>
#include <string_view>

namespace teskel
{

/// An output that takes its name only when it is complete: it is written whole or not at all.
///
/// Until then it stands beside its target under a name of its own. It is removed when it is
/// destroyed without having been committed, and when a signal ends the program. At most four at a
/// time are.
class PendingFile
{
public:
    /// Creates the file. `target` is its final path, in the bytes of the file system.
    explicit PendingFile(std::string target);
    PendingFile(const PendingFile&) = delete;
    PendingFile& operator=(const PendingFile&) = delete;
    ~PendingFile();

    const std::string& path() const { return _path; }
    const std::string& target() const { return _target; }

    /// Appends bytes. Nothing is written any more once something could not be, the creation of the
    /// file included; flush() and commit() say why.
    bool write(std::string_view bytes);
    /// Goes on writing at `offset`, over what stands there.
    void seek(uint64_t offset);

    /// Lets others see what was written so far. On failure returns false and says why in `error`.
    bool flush(std::string& error);

    /// Makes the file's bytes last and gives it its name, replacing the file or the link that was
    /// there, but no pipe or device. On failure returns false and says why in `error`.
    bool commit(std::string& error);

private:
    bool check(bool isDone);
    std::string sentence() const;

    std::string _target;
    std::string _path;
    std::FILE* _file;
    char* _guarded = nullptr; ///< the path as the signal handler knows it
    int _reason = 0;          ///< errno of the first failure
    bool _isCommitted = false;
};

} // namespace teskel
