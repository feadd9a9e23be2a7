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
        : _begin(data)
        , _next(data)
        , _end(data + (available < claimed ? available : claimed))
        , _wordsEnd(_end - _begin < wordSize ? _begin : _end - wordSize + 1)
        , _missing(claimed - static_cast<std::size_t>(_end - _begin))
    {
    }

    /// Makes at least 56 bits ready.
    void refill()
    {
        if (hasWord()) [[likely]]
            refillFromWord();
        else
            refillAtEnd();
    }
    /// Whether eight more bytes are there to be fetched.
    [[nodiscard]] bool hasWord() const { return _next < _wordsEnd; }
    /// The same as refill() where hasWord().
    void refillFromWord()
    {
        _bits |= qFromBigEndian<quint64>(_next) >> _ready;
        _next += (63 - _ready) >> 3;
        _ready |= 56; // adds as many whole bytes as there is room for
    }
    /// Makes at least `n` bits ready, 1 to 56.
    void need(unsigned n)
    {
        if (_ready < n)
            refill();
    }
    /// The next `n` bits, 1 to 32; they must be ready.
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
    [[nodiscard]] quint64 consumed() const
    {
        return (static_cast<quint64>(_next - _begin) + _beyond) * 8 - _ready;
    }

private:
    static constexpr std::ptrdiff_t wordSize = 8;

    void refillAtEnd()
    {
        for (; _ready <= 56; _ready += 8) {
            quint64 byte = 0;
            if (_next < _end)
                byte = *_next++;
            else if (_beyond++ < _missing)
                byte = 0xFF;
            _bits |= byte << (56 - _ready);
        }
    }

    const unsigned char* _begin = nullptr;
    const unsigned char* _next = nullptr;     // byte that is fetched next
    const unsigned char* _end = nullptr;      // of the bytes that are there
    const unsigned char* _wordsEnd = nullptr; // before it eight bytes can be fetched
    quint64 _missing = 0;                     // bytes that are not there but claimed
    quint64 _beyond = 0;                      // bytes fetched beyond the end
    quint64 _bits = 0;   // below the ready bits: zeros, or the very bits that come next
    unsigned _ready = 0; // at most 63; 64 only where no word is left
};

} // namespace teskel
