// SPDX-License-Identifier: MIT
#pragma once

#include <algorithm>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <vector>

namespace teskel
{

/// The places of one block where the same bytes stand, from the last one back: those whose first
/// bytes have the same hash.
class HashChain
{
public:
    /// One more than a place in the block, so that 0 is none.
    using Link = uint16_t;

    static constexpr unsigned maxBlock = 65535;

    /// Empties the chains, for a block of `size` bytes, at most maxBlock, and hashes of its places'
    /// first `length` bytes, 1 to 8.
    void start(unsigned size, unsigned length)
    {
        _length = length;
        const unsigned unused = 64 - 8 * length; // bits of a word
        _mask = isLittleEndian ? ~uint64_t{0} >> unused : ~uint64_t{0} << unused;
        // Tables for the block's own size: a small one does not pay for clearing large ones.
        const unsigned bits =
            std::clamp(static_cast<unsigned>(std::bit_width(size)) + spareBits, 8U, 16U);
        _shift = 64 - bits;
        _newest.assign(std::size_t{1} << bits, 0);
        _older.resize(size);
    }

    unsigned length() const { return _length; }

    /// The first bytes of a word as it was read from memory, without those that are not hashed.
    uint64_t key(uint64_t word) const { return word & _mask; }

    /// Puts a place in front of its chain, the places in order; gives the link to the one before.
    Link add(unsigned place, uint64_t word)
    {
        Link& newest = _newest[(key(word) * multiplier) >> _shift];
        const Link previous = newest;
        newest = static_cast<Link>(place + 1);
        _older[place] = previous;
        return previous;
    }

    Link older(unsigned place) const { return _older[place]; }

private:
    static constexpr bool isLittleEndian = std::endian::native == std::endian::little;
    static constexpr uint64_t multiplier = 0x9E3779B97F4A7C15; // 2^64 by the golden ratio
    static constexpr unsigned spareBits = 2;                   // so that few hashes meet

    unsigned _length = 0;
    uint64_t _mask = 0;
    unsigned _shift = 0;
    std::vector<Link> _newest; ///< hash -> last place
    std::vector<Link> _older;  ///< place -> the one before it
};

} // namespace teskel
