// SPDX-License-Identifier: MIT
#include "lexicon/file/pendingfile.h"

#include <array>
#include <cerrno>
#include <csignal>
#include <cstring>

#include <sys/stat.h>
#include <unistd.h>

namespace teskel
{

namespace
{

constexpr std::array<int, 4> endingSignals = {SIGINT, SIGTERM, SIGHUP, SIGPIPE};

/// Paths for the signal handler, which may use nothing that allocates; empty ones are free.
constexpr size_t mostFiles = 4;
char pendingPaths[mostFiles][4096];

extern "C" void removePendingFiles(int signal)
{
    for (const auto& path : pendingPaths) {
        if (path[0] != '\0')
            ::unlink(static_cast<const char*>(path));
    }
    // The handler is gone by now: end the way the signal meant.
    ::raise(signal);
}

void watchSignals()
{
    for (const int signal : endingSignals) {
        struct sigaction old = {};
        // What the caller chose to ignore stays ignored.
        if (::sigaction(signal, nullptr, &old) != 0 || old.sa_handler == SIG_IGN)
            continue;
        struct sigaction action = {};
        action.sa_handler = removePendingFiles;
        action.sa_flags = static_cast<int>(SA_RESETHAND);
        ::sigaction(signal, &action, nullptr);
    }
}

/// Takes a free place for the path; null when there is none, or the path is too long for it.
char* remember(const std::string& path)
{
    for (auto& place : pendingPaths) {
        if (place[0] == '\0' && path.size() < sizeof place) {
            std::memcpy(static_cast<char*>(place), path.c_str(), path.size() + 1);
            return static_cast<char*>(place);
        }
    }
    return nullptr;
}

// A pipe or a device would be gone for everybody. What a rename says of a directory is enough.
bool isReplaceable(const std::string& path)
{
    struct stat status = {};
    return ::stat(path.c_str(), &status) != 0 || S_ISREG(status.st_mode) || S_ISDIR(status.st_mode);
}

} // namespace

PendingFile::PendingFile(std::string target)
    : _target(std::move(target))
{
    _path = _target + ".part" + std::to_string(::getpid());
    ::unlink(_path.c_str()); // left by a process that was killed
    _guarded = remember(_path);
    watchSignals();
    _file = std::fopen(_path.c_str(), "wbxe");
    check(_file != nullptr);
}

PendingFile::~PendingFile()
{
    if (_file)
        std::fclose(_file);
    if (!_isCommitted)
        ::unlink(_path.c_str());
    if (_guarded)
        _guarded[0] = '\0';
}

/// Keeps the reason when something is not done.
bool PendingFile::check(bool isDone)
{
    if (!isDone && _reason == 0)
        _reason = errno;
    return isDone;
}

std::string PendingFile::sentence() const
{
    return "cannot write " + _target + ": " + std::strerror(_reason);
}

bool PendingFile::write(std::string_view bytes)
{
    return _reason == 0 && check(std::fwrite(bytes.data(), 1, bytes.size(), _file) == bytes.size());
}

void PendingFile::seek(uint64_t offset)
{
    if (_reason == 0)
        check(::fseeko(_file, static_cast<off_t>(offset), SEEK_SET) == 0);
}

bool PendingFile::flush(std::string& error)
{
    if (_reason == 0 && check(std::fflush(_file) == 0))
        return true;
    error = sentence();
    return false;
}

bool PendingFile::commit(std::string& error)
{
    if (!flush(error))
        return false;
    if (!isReplaceable(_target)) {
        error = "cannot write " + _target + ": it is no regular file";
        return false;
    }
    if (!check(::fsync(::fileno(_file)) == 0 && std::rename(_path.c_str(), _target.c_str()) == 0)) {
        error = sentence();
        return false;
    }
    _isCommitted = true;
    return true;
}

} // namespace teskel
