// SPDX-License-Identifier: MIT
#include "lexicon/sources/input/inputfile.h"

#include "lexicon/sources/input/archivelibrary.h"
#include "lexicon/sources/input/archivestream.h"
#include "lexicon/sources/input/decodedstream.h"
#include "lexicon/sources/input/gzipstream.h"
#include "lexicon/text/counted.h"

#include <algorithm>
#include <utility>

namespace teskel
{

static_assert(InputFile::largestPiece == 4U << 20, "the messages say so");

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
    else if (ArchiveStream::isBegunBy(magic) && !unpackByLibrary(error))
        return false;
    if (_file.reason().empty())
        return true;
    error = reasonOfFailure();
    return false;
}

bool InputFile::unpackByLibrary(std::string& error)
{
    const ArchiveLibrary* library = ArchiveLibrary::get();
    if (library)
        _unpacked = std::make_unique<ArchiveStream>(_file, *library);
    else
        error = "cannot unpack " + name() + ": libarchive is not installed";
    return library != nullptr;
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
    ByteStream& stream = _decoded ? *_decoded : bytes();
    const long got = _hasFailed ? -1 : stream.read(out.data() + length, ByteStream::stepBytes);
    out.resize(length + static_cast<size_t>(std::max(got, 0L)));
    _hasFailed = got < 0;
    return got > 0;
}

ByteStream& InputFile::bytes()
{
    return _unpacked ? *_unpacked : _file;
}

void InputFile::decodeAs(const std::string& encoding)
{
    _decoded = std::make_unique<DecodedStream>(bytes(), encoding, std::exchange(_window, {}));
}

std::string_view InputFile::head(size_t size)
{
    while (_window.size() < size && readStep(_window)) {
    }
    return std::string_view(_window).substr(0, size);
}

bool InputFile::unpackWhole(std::string& error)
{
    _whole = std::make_unique<ScratchFile>();
    std::string piece;
    do {
        if (!readNext(piece, error))
            return false;
        _wholeBytes += piece.size();
    } while (!piece.empty() && _whole->append(piece));
    _whole->finish();
    error = _whole->error();
    return error.empty();
}

bool InputFile::readUnpacked(uint64_t offset, uint64_t size, std::string& out)
{
    if (offset > _wholeBytes || size > _wholeBytes - offset)
        return false;
    out.resize(size);
    return _whole->read(offset, out.data(), size) == size;
}

bool InputFile::read(uint64_t offset, uint64_t size, std::string& out, std::string& error)
{
    if (size > largestPiece) {
        error = _path + ": " + std::to_string(size) + " bytes at " + std::to_string(offset) +
                " are more than the 4 MiB that an article may have";
        return false;
    }
    if (_unpacked && !_whole && !unpackWhole(error))
        return false;
    if (_whole ? readUnpacked(offset, size, out) : _file.readAt(offset, size, out))
        return true;
    error = _path + " is damaged or too short: " + counted(size, "byte") + " at " +
            std::to_string(offset) + " cannot be read";
    return false;
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

/// Fills the window until it has `size` bytes more behind the last line, if there are so many.
bool InputFile::fillWindow(size_t size, std::string& error)
{
    if (_window.size() - _lineBegin < size)
        _window.erase(0, std::exchange(_lineBegin, 0));
    while (_window.size() - _lineBegin < size && readStep(_window)) {
    }
    if (_hasFailed)
        error = reasonOfFailure();
    return !_hasFailed;
}

bool InputFile::readLine(std::string& line, bool& isEnd, std::string& error, char lineEnd)
{
    size_t known = 0; // bytes of the line that hold no end
    size_t end = _window.find(lineEnd, _lineBegin);
    while (end == std::string::npos) {
        known = _window.size() - _lineBegin;
        if (known > largestPiece) {
            error = name() + ": a line is longer than 4 MiB";
            return false;
        }
        if (!fillWindow(known + 1, error))
            return false;
        if (_window.size() - _lineBegin == known)
            break;
        end = _window.find(lineEnd, _lineBegin + known);
    }
    isEnd = end == std::string::npos && known == 0;
    line.assign(_window, _lineBegin, end == std::string::npos ? end : end - _lineBegin);
    _lineBegin = end == std::string::npos ? _window.size() : end + 1;
    return true;
}

bool InputFile::readBytes(size_t size, std::string& bytes, std::string& error)
{
    if (!fillWindow(size, error))
        return false;
    bytes.assign(_window, _lineBegin, size);
    _lineBegin += bytes.size();
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
