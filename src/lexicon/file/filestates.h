// SPDX-License-Identifier: MIT
#pragma once

#include <initializer_list>
#include <string>
#include <vector>

#include <sys/stat.h>

namespace teskel
{

/// Regular files as they were when it was made, by which to tell whether they are still the same:
/// of two states of a file, half of each may have been read.
class FileStates
{
public:
    /// Paths are in the bytes of the file system. What is no regular file is left out.
    FileStates(std::initializer_list<std::string> paths = {});

    void add(const std::string& path);

    /// Whether a file with this status was one of them.
    bool have(const struct stat& status) const;

    /// Whether each is the same file, of the same size and with the same times of change. When one
    /// is not, `error` names it.
    bool areKept(std::string& error) const;

private:
    struct State {
        std::string path;
        struct stat status;
    };

    std::vector<State> _states;
};

} // namespace teskel
