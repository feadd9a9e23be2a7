// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <limits>

#include <sys/types.h>

namespace teskel::test
{

/// Stands between this process and one file, while it lives: reads of that file, through whatever
/// descriptor, fail by a plan. There is one at a time.
class FailingDevice
{
public:
    enum class Fault {
        None,
        Error,       ///< the read fails with EIO
        Interrupted, ///< every second of the reads fails with EINTR, and nothing is lost
        Short,       ///< at most 7 bytes come at once
        End,         ///< nothing comes, as behind the end of the file
        WrongBytes,  ///< the bytes are others
        Slow,        ///< the read takes two seconds
    };

    explicit FailingDevice(const QString& path);
    ~FailingDevice();
    Q_DISABLE_COPY_MOVE(FailingDevice)

    /// From now on `count` reads, behind `first` good ones, have that fault.
    void plan(Fault fault, int first = 0, int count = std::numeric_limits<int>::max());
    /// Reads since the last plan.
    [[nodiscard]] int reads() const { return _reads; }
    /// How many of them had the fault.
    [[nodiscard]] int faults() const { return _faults; }

    /// Where a file stands.
    static constexpr off_t here = -1;
    /// What the C library's read() does, or its pread() at an offset in bytes.
    static ssize_t read(int descriptor, void* buffer, size_t size, off_t offset = here);

private:
    [[nodiscard]] bool isOf(int descriptor) const;
    ssize_t readPlanned(int descriptor, void* buffer, size_t size, off_t offset);

    dev_t _device = 0;
    ino_t _inode = 0;
    Fault _fault = Fault::None;
    int _first = 0;
    int _count = 0;
    int _reads = 0;
    int _faults = 0;
};

} // namespace teskel::test
