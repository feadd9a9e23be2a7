// SPDX-License-Identifier: MIT
#include "lexicon/file/filestates.h"

#include <algorithm>

namespace teskel
{

namespace
{

bool areAlike(const struct timespec& a, const struct timespec& b)
{
    return a.tv_sec == b.tv_sec && a.tv_nsec == b.tv_nsec;
}

/// The time of modification can be set back, that of a change cannot.
bool areAlike(const struct stat& a, const struct stat& b)
{
    return a.st_dev == b.st_dev && a.st_ino == b.st_ino && a.st_size == b.st_size &&
           areAlike(a.st_mtim, b.st_mtim) && areAlike(a.st_ctim, b.st_ctim);
}

} // namespace

FileStates::FileStates(std::initializer_list<std::string> paths)
{
    for (const std::string& path : paths)
        add(path);
}

void FileStates::add(const std::string& path)
{
    State state{path, {}};
    if (::stat(path.c_str(), &state.status) == 0 && S_ISREG(state.status.st_mode))
        _states.push_back(state);
}

bool FileStates::have(const struct stat& status) const
{
    return std::any_of(_states.begin(), _states.end(), [&status](const State& state) {
        return state.status.st_dev == status.st_dev && state.status.st_ino == status.st_ino;
    });
}

bool FileStates::areKept(std::string& error) const
{
    for (const State& state : _states) {
        struct stat now = {};
        if (::stat(state.path.c_str(), &now) == 0 && areAlike(state.status, now))
            continue;
        error = (state.path == "/dev/stdin" ? "standard input" : state.path) +
                " was changed while it was read";
        return false;
    }
    return true;
}

} // namespace teskel
