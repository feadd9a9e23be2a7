// SPDX-License-Identifier: MIT
#include "lexicon/sources/input/scratchfile.h"

#include "lexicon/sources/input/rawfile.h"

#include <cerrno>
#include <cstdlib>
#include <cstring>

#include <fcntl.h>
#include <unistd.h>

namespace teskel
{

namespace
{

std::string directory()
{
    const char* chosen = std::getenv("TMPDIR");
    return chosen && *chosen ? chosen : "/tmp";
}

std::string cannotWrite()
{
    return "cannot write a temporary file in " + directory() + ": " + std::strerror(errno);
}

} // namespace

ScratchFile::~ScratchFile()
{
    if (_descriptor >= 0)
        ::close(_descriptor);
}

bool ScratchFile::open(std::string& error)
{
    _descriptor = ::open(directory().c_str(), O_TMPFILE | O_RDWR | O_CLOEXEC, 0600);
    if (_descriptor < 0) { // not every file system knows files without a name
        std::string name = directory() + "/teskel-lexicon.XXXXXX";
        _descriptor = ::mkostemp(name.data(), O_CLOEXEC);
        if (_descriptor >= 0)
            ::unlink(name.c_str());
    }
    if (_descriptor < 0)
        error = cannotWrite();
    return _descriptor >= 0;
}

bool ScratchFile::append(std::string_view bytes, std::string& error)
{
    while (!bytes.empty()) {
        const long put = ::write(_descriptor, bytes.data(), bytes.size());
        if (put < 0 && errno == EINTR)
            continue;
        if (put < 0) {
            error = cannotWrite();
            return false;
        }
        bytes.remove_prefix(static_cast<std::size_t>(put));
    }
    return true;
}

bool ScratchFile::read(uint64_t offset, uint64_t size, std::string& out) const
{
    return RawFile::readAt(_descriptor, offset, size, out);
}

} // namespace teskel
