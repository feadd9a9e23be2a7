// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string>

namespace teskel
{

/// Appends bit fields to a byte string, most significant bit first.
class BitWriter
{
public:
    /// Writes behind the bytes that `out` already holds; `out` must outlive the writer, and ends
    /// with what was written when that is finished.
    explicit BitWriter(std::string& out)
        : _out(out)
        , _size(out.size())
    {
    }

    /// Appends the low `count` (0 to 32) bits of `value`; higher bits of `value` must be 0.
    void put(unsigned count, uint32_t value)
    {
        _bits = (_bits << count) | value;
        _filled += count;
        if (_filled >= wordBits) {
            _filled -= wordBits;
            appendWord(static_cast<uint32_t>(_bits >> _filled));
        }
    }

    /// Writes what is left, and fills its last, partly used byte with zero bits.
    void finish()
    {
        const std::size_t size = _size + (_filled + 7) / 8;
        appendWord(static_cast<uint32_t>(_bits << (wordBits - _filled)));
        _out.resize(size);
        _size = size;
        _filled = 0;
    }

private:
    static constexpr unsigned wordBits = 32;

    void appendWord(uint32_t word)
    {
        if (_size + sizeof word > _out.size())
            _out.resize(2 * _size + 256);
        const char bytes[] = {static_cast<char>(word >> 24), static_cast<char>(word >> 16),
                              static_cast<char>(word >> 8), static_cast<char>(word)};
        std::memcpy(_out.data() + _size, bytes, sizeof bytes); // one store, not four
        _size += sizeof bytes;
    }

    std::string& _out;
    std::size_t _size;    ///< bytes written; the string may be longer
    uint64_t _bits = 0;   ///< the low `_filled` ones of these are not written yet
    unsigned _filled = 0; ///< below 32 between calls
};

} // namespace teskel
