// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string>

namespace teskel
{

/// Appends bit fields to a byte string, most significant bit first.
class BitWriter
{
public:
    /// Writes behind the bytes that `out` already holds; `out` must outlive the writer.
    explicit BitWriter(std::string& out)
        : _out(out)
    {
    }

    /// Appends the low `count` (0 to 24) bits of `value`; higher bits of `value` must be 0.
    void put(unsigned count, uint32_t value)
    {
        _bits = (_bits << count) | value;
        _filled += count;
        while (_filled >= 8) {
            _filled -= 8;
            _out.push_back(static_cast<char>(static_cast<unsigned char>(_bits >> _filled)));
        }
    }

    /// Fills the last, partly used byte with zero bits.
    void finish()
    {
        if (_filled > 0)
            put(8 - _filled, 0);
    }

private:
    std::string& _out;
    uint32_t _bits = 0;
    unsigned _filled = 0;
};

} // namespace teskel
