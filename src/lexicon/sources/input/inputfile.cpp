// SPDX-License-Identifier: MIT
#include "lexicon/sources/input/inputfile.h"

#include "lexicon/sources/input/archivestream.h"
#include "lexicon/sources/input/gzipstream.h"

#include <algorithm>
#include <utility>

namespace teskel
{

bool InputFile::open(const std::string& path, std::string& error)
{
    _path = path;
    if (!_file.open(path)) {
        error = reasonOfFailure();
        return false;
    }
    const std::string_view magic = _file.head(ArchiveStream::magicBytes);
    if (GzipStream::isBegunBy(magic))
        _unpacked = std::make_unique<GzipStream>(_file);
    else if (ArchiveStream::isBegunBy(magic))
        _unpacked = std::make_unique<ArchiveStream>(_file);
    if (_file.reason().empty())
        return true;
    error = reasonOfFailure();
    return false;
}

std::string InputFile::name() const
{
    return _path == "-" ? "standard input" : _path;
}

std::string InputFile::reasonOfFailure() const
{
    return _file.reason().empty() ? name() + " is damaged: it cannot be unpacked"
                                  : "cannot read " + name() + ": " + _file.reason();
}

bool InputFile::readStep(std::string& out)
{
    const size_t length = out.size();
    out.resize(length + ByteStream::stepBytes);
    ByteStream& stream = _unpacked ? *_unpacked : _file;
    const long got = _hasFailed ? -1 : stream.read(out.data() + length, ByteStream::stepBytes);
    out.resize(length + static_cast<size_t>(std::max(got, 0L)));
    _hasFailed = got < 0;
    return got > 0;
}

std::string_view InputFile::head(size_t size)
{
    while (_window.size() < size && readStep(_window)) {
    }
    return std::string_view(_window).substr(0, size);
}

bool InputFile::readAll(std::string& content, std::string& error)
{
    content = std::exchange(_window, {});
    while (readStep(content)) {
    }
    if (_hasFailed)
        error = reasonOfFailure();
    return !_hasFailed;
}

/// Brings the bytes into the window, and out of it what stands before them.
bool InputFile::fillWindow(uint64_t offset, uint64_t size)
{
    if (offset < _windowBegin) {
        if (!(_unpacked ? _unpacked->rewind() : _file.rewind()))
            return false;
        _hasFailed = false;
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
    if (size > largestPiece || !fillWindow(offset, size)) {
        error = _path + " is damaged or too short: " + std::to_string(size) + " bytes at " +
                std::to_string(offset) + " cannot be read";
        return false;
    }
    out.assign(_window, offset - _windowBegin, size);
    return true;
}

bool InputFile::readNext(std::string& out, std::string& error)
{
    out = std::exchange(_window, {});
    if (out.empty())
        readStep(out);
    if (_hasFailed)
        error = reasonOfFailure();
    return !_hasFailed;
}

bool InputFile::readLine(std::string& line, bool& isEnd, std::string& error)
{
    size_t end = _window.find('\n', _lineBegin);
    while (end == std::string::npos) {
        _window.erase(0, std::exchange(_lineBegin, 0));
        const size_t known = _window.size();
        if (known > largestPiece) {
            error = name() + ": a line is longer than 64 MiB";
            return false;
        }
        if (!readStep(_window))
            break;
        end = _window.find('\n', known);
    }
    if (_hasFailed) {
        error = reasonOfFailure();
        return false;
    }
    isEnd = end == std::string::npos && _lineBegin == _window.size();
    line.assign(_window, _lineBegin, end == std::string::npos ? end : end - _lineBegin);
    _lineBegin = end == std::string::npos ? _window.size() : end + 1;
    return true;
}

bool InputFile::checkUnchanged(std::string& error) const
{
    if (_file.isUnchanged())
        return true;
    error = name() + " was changed while it was read";
    return false;
}

} // namespace teskel
