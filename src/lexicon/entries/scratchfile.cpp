// SPDX-License-Identifier: MIT
#include "lexicon/entries/scratchfile.h"

#include <algorithm>
#include <cerrno>
#include <cstdlib>
#include <cstring>

#include <fcntl.h>
#include <unistd.h>

namespace teskel
{

namespace
{

std::string directoryForScratch()
{
    const char* const named = std::getenv("TMPDIR");
    return named != nullptr && *named != '\0' ? named : "/tmp";
}

/// Not every file system can make a file without a name.
int openUnnamed(const std::string& directory)
{
    const int descriptor =
        ::open(directory.c_str(), O_TMPFILE | O_RDWR | O_CLOEXEC, S_IRUSR | S_IWUSR);
    if (descriptor >= 0)
        return descriptor;
    std::string name = directory + "/teskel-lexicon-XXXXXX";
    const int named = ::mkostemp(name.data(), O_CLOEXEC);
    if (named >= 0)
        ::unlink(name.c_str());
    return named;
}

} // namespace

ScratchFile::~ScratchFile()
{
    if (_descriptor >= 0)
        ::close(_descriptor);
}

void ScratchFile::fail(const char* act, int reason)
{
    if (_error.empty())
        _error = std::string(act) + " a temporary file in " + directoryForScratch() + ": " +
                 std::strerror(reason);
}

bool ScratchFile::append(std::string_view bytes)
{
    _held += bytes;
    return _held.size() < heldBytes ? _error.empty() : writeOut();
}

bool ScratchFile::finish()
{
    if (_descriptor < 0 && _error.empty())
        return true;
    const bool isWritten = writeOut();
    _held.shrink_to_fit();
    return isWritten;
}

bool ScratchFile::writeOut()
{
    if (_descriptor < 0 && _error.empty()) {
        _descriptor = openUnnamed(directoryForScratch());
        if (_descriptor < 0)
            fail("cannot make", errno);
    }
    std::string_view rest = _held;
    while (_error.empty() && !rest.empty()) {
        const ssize_t written = ::write(_descriptor, rest.data(), rest.size());
        if (written >= 0)
            rest.remove_prefix(static_cast<size_t>(written));
        else if (errno != EINTR)
            fail("cannot write", errno);
    }
    _held.clear();
    return _error.empty();
}

size_t ScratchFile::read(uint64_t offset, char* buffer, size_t size)
{
    if (_descriptor < 0) {
        const size_t there = _held.size() - std::min<uint64_t>(offset, _held.size());
        return _held.copy(buffer, size, _held.size() - there);
    }
    size_t got = 0;
    while (_error.empty() && got < size) {
        const ssize_t step =
            ::pread(_descriptor, buffer + got, size - got, static_cast<off_t>(offset + got));
        if (step > 0)
            got += static_cast<size_t>(step);
        else if (step == 0)
            break;
        else if (errno != EINTR)
            fail("cannot read", errno);
    }
    return got;
}

} // namespace teskel
