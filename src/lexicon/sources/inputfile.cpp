// SPDX-License-Identifier: MIT
#include "lexicon/sources/inputfile.h"

#include <algorithm>
#include <cerrno>
#include <cstring>

#include <unistd.h>
#include <zlib.h>

namespace teskel
{

namespace
{

constexpr unsigned stepBytes = 1U << 18;

int errorCode(gzFile file)
{
    int code = Z_ERRNO;
    if (file)
        gzerror(file, &code);
    return code;
}

std::string cannotRead(const std::string& path)
{
    return "cannot read " + path + ": " + std::strerror(errno);
}

} // namespace

InputFile::~InputFile()
{
    if (_file)
        gzclose_r(_file);
}

bool InputFile::open(const std::string& path, std::string& error)
{
    _path = path;
    _file = path == "-" ? gzdopen(::dup(STDIN_FILENO), "rb") : gzopen(path.c_str(), "rbe");
    // Looks at the first bytes, which also tells a directory from a file.
    _isPacked = _file && gzdirect(_file) == 0;
    if (errorCode(_file) != Z_ERRNO)
        return true;
    error = cannotRead(path);
    return false;
}

bool InputFile::readStep(std::string& out)
{
    const size_t length = out.size();
    out.resize(length + stepBytes);
    const int got = gzread(_file, out.data() + length, stepBytes);
    out.resize(length + static_cast<size_t>(std::max(got, 0)));
    return got > 0;
}

bool InputFile::readAll(std::string& content, std::string& error)
{
    content.clear();
    while (readStep(content)) {
    }
    const int code = errorCode(_file);
    if (code == Z_ERRNO)
        error = cannotRead(_path);
    else if (code != Z_OK)
        error = _path + " is damaged: it cannot be unpacked";
    return code == Z_OK;
}

/// Brings the bytes into the window, and out of it what stands before them.
bool InputFile::fillWindow(uint64_t offset, uint64_t size)
{
    if (offset < _windowBegin) {
        if (gzrewind(_file) != 0)
            return false;
        _window.clear();
        _windowBegin = 0;
    }
    for (uint64_t end = _windowBegin + _window.size(); offset > end || size > end - offset;
         end = _windowBegin + _window.size()) {
        const size_t passed = std::min<uint64_t>(offset - _windowBegin, _window.size());
        _window.erase(0, passed);
        _windowBegin += passed;
        if (!readStep(_window))
            return false;
    }
    return true;
}

bool InputFile::read(uint64_t offset, uint64_t size, std::string& out, std::string& error)
{
    if (!fillWindow(offset, size)) {
        error = _path + " is damaged or too short: " + std::to_string(size) + " bytes at " +
                std::to_string(offset) + " cannot be read";
        return false;
    }
    out.assign(_window, offset - _windowBegin, size);
    return true;
}

} // namespace teskel
