// SPDX-License-Identifier: MIT
#include "lexicon/file/pendingfile.h"

#include <array>
#include <cerrno>
#include <csignal>
#include <cstdio>
#include <cstring>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace teskel
{

namespace
{

constexpr std::array<int, 4> endingSignals = {SIGINT, SIGTERM, SIGHUP, SIGPIPE};

/// Path for the signal handler, which may use nothing that allocates.
char pendingPath[4096];

extern "C" void removePendingFile(int signal)
{
    if (pendingPath[0] != '\0')
        ::unlink(static_cast<const char*>(pendingPath));
    // The handler is gone by now: end the way the signal meant.
    ::raise(signal);
}

void watchSignals(const std::string& path)
{
    const size_t length = path.size() < sizeof pendingPath ? path.size() : 0;
    std::memcpy(static_cast<char*>(pendingPath), path.data(), length);
    pendingPath[length] = '\0';
    for (const int signal : endingSignals) {
        struct sigaction old = {};
        // What the caller chose to ignore stays ignored.
        if (::sigaction(signal, nullptr, &old) != 0 || old.sa_handler == SIG_IGN)
            continue;
        struct sigaction action = {};
        action.sa_handler = removePendingFile;
        action.sa_flags = static_cast<int>(SA_RESETHAND);
        ::sigaction(signal, &action, nullptr);
    }
}

void forgetSignals()
{
    pendingPath[0] = '\0';
}

bool makeLasting(const std::string& path)
{
    const int file = ::open(path.c_str(), O_RDONLY | O_CLOEXEC);
    if (file < 0)
        return false;
    const bool done = ::fsync(file) == 0;
    const int reason = errno;
    ::close(file);
    errno = reason;
    return done;
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
    watchSignals(_path);
}

PendingFile::~PendingFile()
{
    if (!_isCommitted)
        ::unlink(_path.c_str());
    forgetSignals();
}

bool PendingFile::commit(std::string& error)
{
    if (!isReplaceable(_target)) {
        error = "cannot write " + _target + ": it is no regular file";
        return false;
    }
    if (!makeLasting(_path) || std::rename(_path.c_str(), _target.c_str()) != 0) {
        error = "cannot write " + _target + ": " + std::strerror(errno);
        return false;
    }
    _isCommitted = true;
    return true;
}

} // namespace teskel
