// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <cstdint>
#include <span>

namespace teskel
{

/// A canonical prefix code made from symbol counts, no code longer than 16 bits.
///
/// Shorter codes come first; codes of one length ascend with their symbols, the order in which an
/// unpacker rebuilds them from the lengths alone.
class HuffmanCode
{
public:
    static constexpr unsigned maxLength = 16;
    static constexpr unsigned maxSymbols = 512;

    /// Makes the code of `counts[symbol]` uses, of at most maxSymbols symbols; together they are
    /// below 2^32. Symbols without uses get length 0. A lone symbol needs no bits at all: its
    /// length is 0 too, and isLone() is true.
    explicit HuffmanCode(std::span<const uint32_t> counts);

    unsigned length(unsigned symbol) const { return _lengths[symbol]; }
    uint32_t code(unsigned symbol) const { return _codes[symbol]; }
    unsigned symbolCount() const { return _symbolCount; }
    /// Highest symbol with a length, plus 1.
    unsigned usedSymbols() const { return _usedSymbols; }
    /// At most one symbol is used.
    bool isLone() const { return _isLone; }
    /// The only symbol used; 0 when there is none.
    unsigned loneSymbol() const { return _loneSymbol; }

private:
    void assignCodes(std::span<const unsigned> leavesAtDepth);

    unsigned _symbolCount;
    unsigned _usedSymbols = 0;
    std::array<uint8_t, maxSymbols> _lengths{};
    std::array<uint16_t, maxSymbols> _codes{};
    bool _isLone = false;
    unsigned _loneSymbol = 0;
};

} // namespace teskel
