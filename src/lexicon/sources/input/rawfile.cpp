// SPDX-License-Identifier: MIT
#include "lexicon/sources/input/rawfile.h"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <limits>

#include <fcntl.h>
#include <unistd.h>

namespace teskel
{

namespace
{

bool areAlike(const struct timespec& a, const struct timespec& b)
{
    return a.tv_sec == b.tv_sec && a.tv_nsec == b.tv_nsec;
}

} // namespace

RawFile::~RawFile()
{
    if (_descriptor >= 0)
        ::close(_descriptor);
}

bool RawFile::open(const std::string& path)
{
    const bool isStandardInput = path == "-";
    // Without O_NONBLOCK the opening of a pipe waits for someone to write into it.
    _descriptor = isStandardInput ? ::fcntl(STDIN_FILENO, F_DUPFD_CLOEXEC, 0)
                                  : ::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK);
    if (_descriptor < 0 || ::fstat(_descriptor, &_opened) != 0)
        _reason = std::strerror(errno);
    else if (S_ISDIR(_opened.st_mode))
        _reason = std::strerror(EISDIR);
    else if (!isStandardInput && !S_ISREG(_opened.st_mode))
        _reason = "it is no regular file (\"-\" reads the standard input)";
    return _reason.empty();
}

long RawFile::readDescriptor(char* out, std::size_t size)
{
    long got = 0;
    do {
        got = ::read(_descriptor, out, size);
    } while (got < 0 && errno == EINTR);
    if (got < 0)
        _reason = std::strerror(errno);
    return got;
}

std::string_view RawFile::head(std::size_t size)
{
    while (_ahead.size() < size) {
        const std::size_t length = _ahead.size();
        _ahead.resize(size);
        const long got = readDescriptor(_ahead.data() + length, size - length);
        _ahead.resize(length + static_cast<std::size_t>(std::max(got, 0L)));
        if (got <= 0)
            break;
    }
    return std::string_view(_ahead).substr(0, size);
}

long RawFile::read(char* out, std::size_t size)
{
    if (_ahead.empty())
        return readDescriptor(out, size);
    const std::size_t given = std::min(size, _ahead.size());
    _ahead.copy(out, given);
    _ahead.erase(0, given);
    return static_cast<long>(given);
}

bool RawFile::readAt(uint64_t offset, uint64_t size, std::string& out) const
{
    constexpr auto lastOffset = static_cast<uint64_t>(std::numeric_limits<off_t>::max());
    out.clear();
    if (offset > lastOffset || size > lastOffset - offset)
        return false;
    out.resize(size);
    for (std::size_t done = 0; done < size;) {
        const long got =
            ::pread(_descriptor, out.data() + done, size - done, static_cast<off_t>(offset + done));
        if (got < 0 && errno == EINTR)
            continue;
        if (got <= 0)
            return false;
        done += static_cast<std::size_t>(got);
    }
    return true;
}

bool RawFile::isUnchanged() const
{
    struct stat now = {};
    if (!S_ISREG(_opened.st_mode))
        return true;
    return ::fstat(_descriptor, &now) == 0 && now.st_size == _opened.st_size &&
           areAlike(now.st_mtim, _opened.st_mtim) && areAlike(now.st_ctim, _opened.st_ctim);
}

} // namespace teskel
