// SPDX-License-Identifier: MIT
#include "lexicon/sources/input/gzipstream.h"

#include <algorithm>
#include <cstring>

namespace teskel
{

namespace
{
constexpr std::string_view magic = "\x1F\x8B";
constexpr int gzipWrapped = 16; // added to the window's bits: expect gzip's header and trailer
} // namespace

bool GzipStream::isBegunBy(std::string_view head)
{
    return head.starts_with(magic);
}

GzipStream::GzipStream(ByteStream& packed)
    : _packed(packed)
{
    _inflate.next_in = reinterpret_cast<Bytef*>(_input.data()); // nothing is there yet
    _isReady = inflateInit2(&_inflate, MAX_WBITS + gzipWrapped) == Z_OK;
}

GzipStream::~GzipStream()
{
    inflateEnd(&_inflate);
}

/// Appends to the input that is left; false at its end or when it cannot be read.
bool GzipStream::refill()
{
    std::memmove(_input.data(), _inflate.next_in, _inflate.avail_in);
    const long got = _packed.read(_input.data() + _inflate.avail_in, stepBytes - _inflate.avail_in);
    _inflate.next_in = reinterpret_cast<Bytef*>(_input.data());
    _inflate.avail_in += static_cast<uInt>(std::max(got, 0L));
    return got > 0;
}

/// What follows a member and is none itself, such as padding, is no part of the data.
bool GzipStream::beginNextMember()
{
    while (_inflate.avail_in < magic.size() && refill()) {
    }
    const std::string_view rest(reinterpret_cast<const char*>(_inflate.next_in), _inflate.avail_in);
    return isBegunBy(rest) && inflateReset(&_inflate) == Z_OK;
}

long GzipStream::read(char* out, std::size_t size)
{
    _inflate.next_out = reinterpret_cast<Bytef*>(out);
    _inflate.avail_out = static_cast<uInt>(std::min(size, stepBytes));
    const uInt room = _inflate.avail_out;
    while (_isReady && _inflate.avail_out == room) {
        if (_isMemberDone && !beginNextMember())
            return 0;
        _isMemberDone = false;
        if (_inflate.avail_in == 0 && !refill())
            return -1; // the end comes too early
        const int code = inflate(&_inflate, Z_NO_FLUSH);
        _isMemberDone = code == Z_STREAM_END;
        if (code != Z_OK && code != Z_STREAM_END && code != Z_BUF_ERROR)
            _isReady = false;
    }
    return _isReady ? static_cast<long>(room - _inflate.avail_out) : -1;
}

} // namespace teskel
