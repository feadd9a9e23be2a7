// SPDX-License-Identifier: MIT
#include "platform/directorylock.h"

#include <QDeadlineTimer>
#include <QFile>

#include <cerrno>
#include <thread>

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

namespace teskel
{

namespace
{

constexpr std::chrono::milliseconds pauseBetweenAttempts{5};

bool lock(int descriptor, const QDeadlineTimer& deadline)
{
    while (::flock(descriptor, LOCK_EX | LOCK_NB) != 0) {
        if ((errno != EWOULDBLOCK && errno != EINTR) || deadline.hasExpired())
            return false;
        std::this_thread::sleep_for(pauseBetweenAttempts);
    }
    return true;
}

} // namespace

DirectoryLock::DirectoryLock(const QString& directory, std::chrono::milliseconds wait)
    : _descriptor(
          ::open(QFile::encodeName(directory).constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC))
{
    if (_descriptor < 0 || lock(_descriptor, QDeadlineTimer(wait)))
        return;
    ::close(_descriptor);
    _descriptor = -1;
}

DirectoryLock::~DirectoryLock()
{
    if (isHeld())
        ::close(_descriptor);
}

} // namespace teskel
