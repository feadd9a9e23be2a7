// SPDX-License-Identifier: MIT
#include "dictionary/container/filestamp.h"

#include <QFile>

#include <ctime>

#include <sys/stat.h>

namespace teskel
{

namespace
{
// The clocks of file systems tick in steps; that of FAT, which cards have, in the longest.
constexpr std::time_t longestTick = 2; // seconds

qint64 nanoseconds(const timespec& time)
{
    return qint64{time.tv_sec} * 1'000'000'000 + time.tv_nsec;
}
} // namespace

FileStamp::FileStamp(const QFile& file)
{
    struct stat status = {};
    if (::fstat(file.handle(), &status) != 0)
        return;
    _state = {quint64{status.st_dev}, quint64{status.st_ino}, qint64{status.st_size},
              nanoseconds(status.st_mtim), nanoseconds(status.st_ctim)};
    _isSettled = std::time(nullptr) - status.st_mtim.tv_sec > longestTick;
}

bool FileStamp::isStill(const FileStamp& later) const
{
    return _isSettled && _state == later._state;
}

} // namespace teskel
