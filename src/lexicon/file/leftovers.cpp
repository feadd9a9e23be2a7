// SPDX-License-Identifier: MIT
#include "lexicon/file/leftovers.h"

#include "lexicon/file/filestates.h"
#include "lexicon/file/outputtarget.h"

#include <QCryptographicHash>
#include <QRandomGenerator>

#include <algorithm>
#include <array>
#include <cerrno>
#include <charconv>
#include <csignal>
#include <filesystem>
#include <string_view>
#include <system_error>

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <sys/xattr.h>
#include <unistd.h>

namespace teskel::leftovers
{

namespace
{

namespace fs = std::filesystem;

constexpr std::string_view mark = ".teskel-";
constexpr const char* attribute = "user.teskel.unfinished";
constexpr size_t digits = 16; ///< of the random number, and of the checksum
/// Of the target's name, bytes: file systems take 255 in all.
constexpr size_t longestStem = 180;

bool isWithinCharacter(char byte)
{
    return (static_cast<unsigned char>(byte) & 0xC0U) == 0x80U;
}

/// How the names of all leftovers of a target begin.
std::string beginningFor(const std::string& name)
{
    size_t length = std::min(name.size(), longestStem);
    while (length > 0 && length < name.size() && isWithinCharacter(name[length]))
        --length;
    return '.' + name.substr(0, length) + std::string(mark);
}

std::string nameFor(const std::string& name, pid_t process, const std::string& random)
{
    const std::string own = beginningFor(name) + std::to_string(process) + '-' + random;
    const QByteArray all = QByteArray::fromStdString(own + '/' + name);
    const QByteArray sum = QCryptographicHash::hash(all, QCryptographicHash::Sha256).toHex();
    return own + sum.left(digits).toStdString();
}

/// 0 when it is the name of something else.
pid_t processIn(const std::string& entry, const std::string& name)
{
    const std::string beginning = beginningFor(name);
    if (!entry.starts_with(beginning))
        return 0;
    pid_t process = 0;
    const char* const last = entry.data() + entry.size();
    const auto [end, error] = std::from_chars(entry.data() + beginning.size(), last, process);
    if (error != std::errc() || last - end != 1 + 2 * static_cast<std::ptrdiff_t>(digits))
        return 0;
    return entry == nameFor(name, process, std::string(end + 1, digits)) ? process : 0;
}

/// Numbers of processes may mean others elsewhere, as in a container: the lock tells, too.
bool isGone(pid_t process)
{
    return process == ::getpid() || (::kill(process, 0) != 0 && errno == ESRCH);
}

/// Where there are no attributes, the name alone must do.
bool isMarked(int file, const std::string& name)
{
    std::array<char, 256> value{};
    const ssize_t size = ::fgetxattr(file, attribute, value.data(), value.size());
    return size < 0 ? errno == ENOTSUP
                    : name == std::string_view(value.data(), static_cast<size_t>(size));
}

void removeLeft(const fs::path& path, const FileStates& read)
{
    const int file = ::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NOFOLLOW | O_NONBLOCK);
    if (file < 0)
        return;
    struct stat status = {};
    if (::fstat(file, &status) == 0 && S_ISREG(status.st_mode) && status.st_nlink == 1 &&
        status.st_uid == ::geteuid() && !read.have(status) &&
        ::flock(file, LOCK_EX | LOCK_NB) == 0 && isMarked(file, path.filename().string()))
        ::unlink(path.c_str());
    ::close(file);
}

} // namespace

std::string newPath(const std::string& target)
{
    const fs::path path(target);
    const QByteArray random = QByteArray::number(QRandomGenerator::system()->generate64(), 16)
                                  .rightJustified(digits, '0');
    return (path.parent_path() /
            nameFor(path.filename().string(), ::getpid(), random.toStdString()))
        .string();
}

void hold(int descriptor, const std::string& path)
{
    const std::string name = fs::path(path).filename().string();
    if (::flock(descriptor, LOCK_EX | LOCK_NB) == 0)
        (void)::fsetxattr(descriptor, attribute, name.data(), name.size(), 0);
}

void release(int descriptor)
{
    (void)::fremovexattr(descriptor, attribute);
}

void remove(const std::string& target, const FileStates& read)
{
    std::string real;
    std::string reason;
    if (!outputtarget::follow(target, real, reason))
        return;
    const fs::path path(real);
    const fs::path directory = path.has_parent_path() ? path.parent_path() : fs::path(".");
    const std::string name = path.filename().string();
    std::error_code error;
    for (fs::directory_iterator entry(directory, error), end; !error && entry != end;
         entry.increment(error)) {
        const pid_t process = processIn(entry->path().filename().string(), name);
        if (process > 0 && isGone(process))
            removeLeft(entry->path(), read);
    }
}

} // namespace teskel::leftovers
