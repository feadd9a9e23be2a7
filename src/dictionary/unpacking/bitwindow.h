// SPDX-License-Identifier: MIT
#pragma once

#include <QtEndian>
#include <QtGlobal>

#include <cstddef>

namespace teskel
{

/// A 64-bit look at a packed stream, most significant bit first.
///
/// Looking past the end of the stream is defined, so that no decoder needs a check of its own: up
/// to the length the stream claims to have missing bytes read as 0xFF, after that as 0.
class BitWindow
{
public:
    BitWindow() = default;
    /// @param data      the stream, borrowed
    /// @param available bytes that are there
    /// @param claimed   bytes that the stream is said to have
    BitWindow(const unsigned char* data, std::size_t available, std::size_t claimed)
        : _data(data)
        , _available(available < claimed ? available : claimed)
        , _claimed(claimed)
    {
    }

    /// Makes at least 56 bits ready.
    void refill()
    {
        if (_next + 8 <= _available) [[likely]] {
            _bits |= qFromBigEndian<quint64>(_data + _next) >> _ready;
            const unsigned bytes = (63 - _ready) >> 3;
            _next += bytes;
            _ready += 8 * bytes;
        } else {
            refillAtEnd();
        }
    }
    /// Makes at least `n` bits ready, 1 to 56.
    void need(unsigned n)
    {
        if (_ready < n)
            refill();
    }
    /// The next `n` bits, 1 to 56; they must be ready.
    [[nodiscard]] unsigned peek(unsigned n) const
    {
        return static_cast<unsigned>(_bits >> (64 - n));
    }
    /// All ready bits, the next one topmost.
    [[nodiscard]] quint64 bits() const { return _bits; }
    /// Passes over `n` ready bits, 0 to 56.
    void drop(unsigned n)
    {
        _bits <<= n;
        _ready -= n;
    }
    /// The next `n` ready bits, 0 to 32, passed over.
    unsigned take(unsigned n)
    {
        const auto value = static_cast<unsigned>((_bits >> 1) >> (63 - n));
        drop(n);
        return value;
    }
    /// Bits passed over since the start of the stream.
    [[nodiscard]] quint64 consumed() const { return quint64{_next} * 8 - _ready; }

private:
    void refillAtEnd()
    {
        for (; _ready <= 56; _ready += 8, ++_next) {
            quint64 byte = 0;
            if (_next < _available)
                byte = _data[_next];
            else if (_next < _claimed)
                byte = 0xFF;
            _bits |= byte << (56 - _ready);
        }
    }

    const unsigned char* _data = nullptr;
    std::size_t _available = 0;
    std::size_t _claimed = 0;
    std::size_t _next = 0; // byte that is fetched next
    quint64 _bits = 0;     // below the ready bits: zeros, or the very bits that come next
    unsigned _ready = 0;
};

} // namespace teskel
