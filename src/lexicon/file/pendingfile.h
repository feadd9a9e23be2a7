// SPDX-License-Identifier: MIT
#pragma once

#include "lexicon/file/guardedpath.h"

#include <cstdint>
#include <cstdio>
#include <optional>
#include <string>
#include <string_view>

namespace teskel
{

/// An output that takes its name only when it is complete: it is written whole or not at all.
///
/// Until then it has no name at all where the file system can do that, and is gone when the program
/// is killed. Elsewhere it stands beside its target under a name of its own; it is removed when it
/// is destroyed without having been committed, and when a signal ends the program. One that a
/// killed program left is for leftovers::remove().
class PendingFile
{
public:
    /// Creates the file. `target` is its final path, in the bytes of the file system; of a symbolic
    /// link it is the file that this leads to.
    explicit PendingFile(std::string target);
    PendingFile(const PendingFile&) = delete;
    PendingFile& operator=(const PendingFile&) = delete;
    ~PendingFile();

    /// Where this process can open what was written so far.
    const std::string& path() const { return _path; }
    const std::string& target() const { return _target; }

    /// Appends bytes. Nothing is written any more once something could not be, the creation of the
    /// file included; flush() and commit() say why.
    bool write(std::string_view bytes);
    /// Goes on writing at `offset`, over what stands there.
    void seek(uint64_t offset);

    /// Lets others see what was written so far. On failure returns false and says why in `error`.
    bool flush(std::string& error);

    /// Makes the file's bytes last, and its name, which it gives it in place of a file that was
    /// there and may be replaced (outputtarget::isReplaceable()), with the permissions of that. On
    /// failure returns false and says why in `error`.
    bool commit(std::string& error);

private:
    void create();
    bool createUnnamed();
    bool takePlace();
    bool check(bool isDone);
    std::string sentence() const;

    std::string _target;
    std::string _real;  ///< the target without links
    std::string _named; ///< the name beside it, while it has one
    std::string _path;
    std::FILE* _file = nullptr;
    std::optional<GuardedPath> _guard; ///< of the name beside the target
    std::string _reason;               ///< of the first failure
};

} // namespace teskel
