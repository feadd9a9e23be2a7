// SPDX-License-Identifier: MIT
#include "tests/card/failingdevice.h"

#include <QFile>

#include <algorithm>
#include <cerrno>

#include <sys/stat.h>
#include <sys/syscall.h>
#include <unistd.h>

namespace teskel::test
{

namespace
{

FailingDevice* present = nullptr;

constexpr size_t fewBytes = 7;
constexpr unsigned slowSeconds = 2;

ssize_t readReally(int descriptor, void* buffer, size_t size, off_t offset)
{
    return offset == FailingDevice::here ? ::syscall(SYS_read, descriptor, buffer, size)
                                         : ::syscall(SYS_pread64, descriptor, buffer, size, offset);
}

} // namespace

FailingDevice::FailingDevice(const QString& path)
{
    struct stat status = {};
    if (::stat(QFile::encodeName(path).constData(), &status) != 0)
        qFatal("there is no %s", qUtf8Printable(path));
    _device = status.st_dev;
    _inode = status.st_ino;
    present = this;
}

FailingDevice::~FailingDevice()
{
    present = nullptr;
}

void FailingDevice::plan(Fault fault, int first, int count)
{
    _fault = fault;
    _first = first;
    _count = count;
    _reads = 0;
    _faults = 0;
}

bool FailingDevice::isOf(int descriptor) const
{
    struct stat status = {};
    return ::fstat(descriptor, &status) == 0 && status.st_dev == _device && status.st_ino == _inode;
}

ssize_t FailingDevice::read(int descriptor, void* buffer, size_t size, off_t offset)
{
    return present != nullptr && present->isOf(descriptor)
               ? present->readPlanned(descriptor, buffer, size, offset)
               : readReally(descriptor, buffer, size, offset);
}

ssize_t FailingDevice::readPlanned(int descriptor, void* buffer, size_t size, off_t offset)
{
    const int number = _reads++ - _first;
    const bool isPlanned = _fault != Fault::None && number >= 0 && number < _count;
    if (!isPlanned)
        return readReally(descriptor, buffer, size, offset);
    ++_faults;
    switch (_fault) {
    case Fault::Error:
        errno = EIO;
        return -1;
    case Fault::Interrupted:
        if (number % 2 == 0) {
            errno = EINTR;
            return -1;
        }
        break;
    case Fault::Short:
        return readReally(descriptor, buffer, std::min(size, fewBytes), offset);
    case Fault::End:
        return 0;
    case Fault::WrongBytes: {
        const ssize_t count = readReally(descriptor, buffer, size, offset);
        auto* const bytes = static_cast<unsigned char*>(buffer);
        for (ssize_t at = 0; at < count; ++at)
            bytes[at] = static_cast<unsigned char>(bytes[at] ^ (0x5A + 31 * at));
        return count;
    }
    case Fault::Slow:
        ::sleep(slowSeconds);
        break;
    case Fault::None:
        break;
    }
    return readReally(descriptor, buffer, size, offset);
}

} // namespace teskel::test

/// Stand in front of the C library's read() and pread(), for the libraries that the program uses
/// too. Under names of their own, since the library's header may define those.
extern "C" [[gnu::visibility("default")]] ssize_t plannedRead(int descriptor, void* buffer,
                                                              size_t size) __asm__("read");

extern "C" [[gnu::visibility("default")]] ssize_t
plannedReadAt(int descriptor, void* buffer, size_t size, off_t offset) __asm__("pread");

ssize_t plannedRead(int descriptor, void* buffer, size_t size)
{
    return teskel::test::FailingDevice::read(descriptor, buffer, size);
}

ssize_t plannedReadAt(int descriptor, void* buffer, size_t size, off_t offset)
{
    return teskel::test::FailingDevice::read(descriptor, buffer, size, offset);
}
