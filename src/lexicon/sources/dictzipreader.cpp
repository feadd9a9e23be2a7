// SPDX-License-Identifier: MIT
#include "lexicon/sources/dictzipreader.h"

#include <algorithm>
#include <cerrno>
#include <cstring>

#include <zlib.h>

namespace teskel
{

namespace
{

// Flags of a gzip header
constexpr unsigned hasHeaderChecksum = 0x02;
constexpr unsigned hasExtra = 0x04;
constexpr unsigned hasName = 0x08;
constexpr unsigned hasComment = 0x10;
constexpr qint64 fixedHeaderBytes = 10;

unsigned word(const std::string& bytes, size_t position)
{
    return static_cast<unsigned char>(bytes[position]) |
           static_cast<unsigned>(static_cast<unsigned char>(bytes[position + 1])) << 8;
}

std::string take(QFile& file, qint64 bytes)
{
    return file.read(bytes).toStdString();
}

void skipText(QFile& file)
{
    char c = 0;
    while (file.getChar(&c) && c != '\0') {
    }
}

/// Unpacks a piece of a raw deflate stream that depends on nothing before it.
bool inflatePiece(const std::string& packed, uint64_t capacity, std::string& out)
{
    z_stream stream = {};
    if (inflateInit2(&stream, -MAX_WBITS) != Z_OK)
        return false;
    out.resize(capacity);
    stream.next_in = reinterpret_cast<Bytef*>(const_cast<char*>(packed.data()));
    stream.avail_in = static_cast<uInt>(packed.size());
    stream.next_out = reinterpret_cast<Bytef*>(out.data());
    stream.avail_out = static_cast<uInt>(out.size());
    const int result = inflate(&stream, Z_PARTIAL_FLUSH);
    out.resize(stream.total_out);
    inflateEnd(&stream);
    return result == Z_OK || result == Z_STREAM_END || result == Z_BUF_ERROR;
}

} // namespace

bool DictzipReader::open(const std::string& path, std::string& error)
{
    _path = path;
    _file.setFileName(QFile::decodeName(path.c_str()));
    if (!_file.open(QIODevice::ReadOnly)) {
        error = "cannot read " + path + ": " + _file.errorString().toStdString();
        return false;
    }
    _isPacked = path.ends_with(".dz") || path.ends_with(".gz");
    return !_isPacked || openPacked(error);
}

bool DictzipReader::openPacked(std::string& error)
{
    const std::string header = take(_file, fixedHeaderBytes);
    if (header.size() < fixedHeaderBytes || word(header, 0) != 0x8B1F || header[2] != Z_DEFLATED) {
        error = _path + " is not packed by dictzip or gzip";
        return false;
    }
    const unsigned flags = static_cast<unsigned char>(header[3]);
    std::string extra;
    if (flags & hasExtra) {
        const std::string length = take(_file, 2);
        extra = length.size() == 2 ? take(_file, word(length, 0)) : std::string();
    }
    if (flags & hasName)
        skipText(_file);
    if (flags & hasComment)
        skipText(_file);
    if (flags & hasHeaderChecksum)
        take(_file, 2);
    return readChunkTable(extra) || unpackAll(_path, error);
}

/// The extra field holds subfields: two letters, a length, and the content. dictzip's is "RA":
/// version, chunk length, number of chunks, and the packed size of each.
bool DictzipReader::readChunkTable(const std::string& extra)
{
    for (size_t field = 0; field + 4 <= extra.size();) {
        const size_t length = word(extra, field + 2);
        const size_t content = field + 4;
        if (extra.compare(field, 2, "RA") == 0 && content + 6 <= extra.size()) {
            _chunkBytes = word(extra, content + 2);
            const size_t count = word(extra, content + 4);
            if (_chunkBytes == 0 || content + 6 + 2 * count > extra.size())
                return false;
            _chunkOffsets.assign(1, static_cast<uint64_t>(_file.pos()));
            for (size_t i = 0; i < count; ++i)
                _chunkOffsets.push_back(_chunkOffsets.back() + word(extra, content + 6 + 2 * i));
            return true;
        }
        field = content + length;
    }
    return false;
}

bool DictzipReader::unpackAll(const std::string& path, std::string& error)
{
    constexpr unsigned step = 1U << 18;
    const gzFile file = gzopen(path.c_str(), "rb");
    int got = -1;
    size_t length = 0;
    do {
        _whole.resize(length + step);
        if (file)
            got = gzread(file, _whole.data() + length, step);
        length += got > 0 ? static_cast<size_t>(got) : 0;
    } while (got > 0);
    _whole.resize(length);
    const bool isClosed = file && gzclose(file) == Z_OK;
    const bool complete = got == 0 && isClosed;
    if (!complete)
        error = path + " is damaged: it cannot be unpacked";
    return complete;
}

const std::string* DictzipReader::chunk(uint64_t number)
{
    const auto kept = std::find_if(_kept.begin(), _kept.end(),
                                   [&](const Chunk& each) { return each.number == number; });
    if (kept != _kept.end())
        return &kept->bytes;
    if (number + 1 >= _chunkOffsets.size())
        return nullptr;
    const uint64_t begin = _chunkOffsets[number];
    if (!_file.seek(static_cast<qint64>(begin)))
        return nullptr;
    const std::string packed = take(_file, static_cast<qint64>(_chunkOffsets[number + 1] - begin));
    Chunk& place = _kept[_oldest];
    _oldest = (_oldest + 1) % _kept.size();
    place.number = UINT64_MAX;
    if (!inflatePiece(packed, _chunkBytes, place.bytes))
        return nullptr;
    place.number = number;
    return &place.bytes;
}

bool DictzipReader::readChunks(uint64_t offset, uint64_t size, std::string& out)
{
    while (size > 0) {
        const std::string* bytes = chunk(offset / _chunkBytes);
        const uint64_t inside = offset % _chunkBytes;
        if (!bytes || inside >= bytes->size())
            return false;
        const uint64_t part = std::min<uint64_t>(size, bytes->size() - inside);
        out.append(*bytes, inside, part);
        offset += part;
        size -= part;
    }
    return true;
}

bool DictzipReader::read(uint64_t offset, uint64_t size, std::string& out, std::string& error)
{
    out.clear();
    bool done = false;
    if (!_isPacked) {
        const auto length = static_cast<qint64>(size);
        if (size <= static_cast<uint64_t>(_file.size()) &&
            _file.seek(static_cast<qint64>(offset))) {
            out = take(_file, length);
            done = out.size() == size;
        }
    } else if (_chunkBytes == 0) {
        done = offset <= _whole.size() && size <= _whole.size() - offset;
        if (done)
            out.assign(_whole, offset, size);
    } else {
        done = readChunks(offset, size, out);
    }
    if (!done)
        error = _path + " is damaged or too short: " + std::to_string(size) + " bytes at " +
                std::to_string(offset) + " cannot be read";
    return done;
}

} // namespace teskel
