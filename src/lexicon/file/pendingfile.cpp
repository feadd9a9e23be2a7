// SPDX-License-Identifier: MIT
#include "lexicon/file/pendingfile.h"

#include "lexicon/file/leftovers.h"
#include "lexicon/file/outputtarget.h"

#include <cerrno>
#include <cstring>
#include <filesystem>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace teskel
{

namespace
{

constexpr mode_t newFileMode = S_IRUSR | S_IWUSR | S_IRGRP | S_IWGRP | S_IROTH | S_IWOTH;
constexpr mode_t permissions = S_IRWXU | S_IRWXG | S_IRWXO;

std::string directoryOf(const std::string& path)
{
    const std::string directory = std::filesystem::path(path).parent_path().string();
    return directory.empty() ? "." : directory;
}

/// A name in a directory may be lost with the power, too. Not every file system can do it, and the
/// file is there.
void makeNameLast(const std::string& path)
{
    const int directory = ::open(directoryOf(path).c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (directory < 0)
        return;
    (void)::fsync(directory);
    ::close(directory);
}

} // namespace

PendingFile::PendingFile(std::string target)
    : _target(std::move(target))
{
    if (outputtarget::follow(_target, _real, _reason))
        create();
}

void PendingFile::create()
{
    if (createUnnamed())
        return;
    _path = _named = leftovers::newPath(_real);
    _guard.emplace(_named);
    const int descriptor =
        ::open(_named.c_str(), O_RDWR | O_CREAT | O_EXCL | O_CLOEXEC, newFileMode);
    if (!check(descriptor >= 0))
        return;
    leftovers::hold(descriptor, _named);
    _file = ::fdopen(descriptor, "wb");
    check(_file != nullptr);
}

/// Not every file system can make a file without a name, and /proc gives it one in the end.
bool PendingFile::createUnnamed()
{
    const int descriptor =
        ::open(directoryOf(_real).c_str(), O_TMPFILE | O_RDWR | O_CLOEXEC, newFileMode);
    if (descriptor < 0)
        return false;
    _path = "/proc/self/fd/" + std::to_string(descriptor);
    const bool isReachable = ::access(_path.c_str(), F_OK) == 0;
    _file = isReachable ? ::fdopen(descriptor, "wb") : nullptr;
    if (!_file)
        ::close(descriptor);
    return _file != nullptr;
}

PendingFile::~PendingFile()
{
    if (_file)
        std::fclose(_file);
    if (!_named.empty())
        ::unlink(_named.c_str());
}

/// Keeps the reason when something is not done.
bool PendingFile::check(bool isDone)
{
    if (!isDone && _reason.empty())
        _reason = std::strerror(errno);
    return isDone;
}

std::string PendingFile::sentence() const
{
    return "cannot write " + _target + ": " + _reason;
}

bool PendingFile::write(std::string_view bytes)
{
    return _reason.empty() &&
           check(std::fwrite(bytes.data(), 1, bytes.size(), _file) == bytes.size());
}

void PendingFile::seek(uint64_t offset)
{
    if (_reason.empty())
        check(::fseeko(_file, static_cast<off_t>(offset), SEEK_SET) == 0);
}

bool PendingFile::flush(std::string& error)
{
    if (_reason.empty() && check(std::fflush(_file) == 0))
        return true;
    error = sentence();
    return false;
}

/// Only a file that has a name can take that of another.
bool PendingFile::takePlace()
{
    if (_named.empty()) {
        const std::string name = leftovers::newPath(_real);
        _guard.emplace(name);
        leftovers::hold(::fileno(_file), name);
        if (::linkat(AT_FDCWD, _path.c_str(), AT_FDCWD, name.c_str(), AT_SYMLINK_FOLLOW) != 0)
            return false;
        _named = name;
    }
    leftovers::release(::fileno(_file));
    if (std::rename(_named.c_str(), _real.c_str()) != 0)
        return false;
    _named.clear();
    makeNameLast(_real);
    return true;
}

bool PendingFile::commit(std::string& error)
{
    if (!flush(error))
        return false;
    struct stat old = {};
    if (outputtarget::isReplaceable(_real, _reason)) {
        const int descriptor = ::fileno(_file);
        if (::stat(_real.c_str(), &old) == 0)
            (void)::fchmod(descriptor, old.st_mode & permissions); // not every file system has any
        check(::fsync(descriptor) == 0);
    }
    if (_reason.empty() && check(takePlace()))
        return true;
    error = sentence();
    return false;
}

} // namespace teskel
