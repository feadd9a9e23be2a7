// SPDX-License-Identifier: MIT
#include "lexicon/sources/input/decodedstream.h"

namespace teskel
{

DecodedStream::DecodedStream(ByteStream& bytes, const std::string& encoding, std::string_view begun)
    : _bytes(bytes)
    , _decoder(encoding)
{
    if (!begun.empty())
        _decoder.decode(begun, _text);
}

/// Gets more text, or notes the end; false when reading failed.
bool DecodedStream::fill()
{
    _text.clear();
    _given = 0;
    const long got = _bytes.read(_input.data(), _input.size());
    if (got < 0)
        return false;
    _isEnd = got == 0;
    if (_isEnd)
        _decoder.finish(_text);
    else
        _decoder.decode(std::string_view(_input).substr(0, static_cast<std::size_t>(got)), _text);
    return true;
}

long DecodedStream::read(char* out, std::size_t size)
{
    while (_given == _text.size() && !_isEnd) {
        if (!fill())
            return -1;
    }
    const std::size_t given = _text.copy(out, size, _given);
    _given += given;
    return static_cast<long>(given);
}

} // namespace teskel
