// SPDX-License-Identifier: MIT
#include "lexicon/file/leftovers.h"

#include <algorithm>
#include <cerrno>
#include <charconv>
#include <csignal>
#include <filesystem>
#include <string_view>
#include <system_error>

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

namespace teskel::leftovers
{

namespace
{

namespace fs = std::filesystem;

constexpr std::string_view mark = ".part";

/// 0 when it is the name of something else.
pid_t processIn(std::string_view name, std::string_view target)
{
    pid_t process = 0;
    if (!name.starts_with(target) || !name.substr(target.size()).starts_with(mark))
        return 0;
    name.remove_prefix(target.size() + mark.size());
    const auto [end, error] = std::from_chars(name.data(), name.data() + name.size(), process);
    return error == std::errc() && end == name.data() + name.size() ? process : 0;
}

/// Numbers of processes may mean others elsewhere, as in a container: the lock tells, too.
bool isLeft(const fs::path& path, pid_t process)
{
    if (process <= 0 || process == ::getpid() || ::kill(process, 0) == 0 || errno != ESRCH)
        return false;
    const int file = ::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NOFOLLOW | O_NONBLOCK);
    struct stat status = {};
    const bool isFree = file >= 0 && ::fstat(file, &status) == 0 && S_ISREG(status.st_mode) &&
                        ::flock(file, LOCK_EX | LOCK_NB) == 0;
    if (file >= 0)
        ::close(file);
    return isFree;
}

} // namespace

std::string pathFor(const std::string& target)
{
    return target + std::string(mark) + std::to_string(::getpid());
}

bool hold(int descriptor)
{
    return ::flock(descriptor, LOCK_EX | LOCK_NB) == 0;
}

void remove(const std::string& target)
{
    const fs::path path(target);
    const fs::path directory = path.has_parent_path() ? path.parent_path() : fs::path(".");
    const std::string name = path.filename().string();
    std::error_code error;
    for (fs::directory_iterator entry(directory, error), end; !error && entry != end;
         entry.increment(error)) {
        if (isLeft(entry->path(), processIn(entry->path().filename().string(), name)))
            ::unlink(entry->path().c_str());
    }
    // Of an earlier process with this one's number.
    ::unlink(pathFor(target).c_str());
}

} // namespace teskel::leftovers
