// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <vector>

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

    /// Makes the code of `counts[symbol]` uses. Symbols without uses get length 0. A lone symbol
    /// needs no bits at all: its length is 0 too, and isLone() is true.
    explicit HuffmanCode(const std::vector<uint32_t>& counts);

    unsigned length(unsigned symbol) const { return _lengths[symbol]; }
    uint32_t code(unsigned symbol) const { return _codes[symbol]; }
    unsigned symbolCount() const { return static_cast<unsigned>(_lengths.size()); }
    /// Highest symbol with a length, plus 1.
    unsigned usedSymbols() const;
    /// At most one symbol is used.
    bool isLone() const { return _isLone; }
    /// The only symbol used; 0 when there is none.
    unsigned loneSymbol() const { return _loneSymbol; }

private:
    void assignLengths(const std::vector<uint32_t>& counts, const std::vector<unsigned>& sorted);
    void assignCodes();

    std::vector<uint8_t> _lengths;
    std::vector<uint16_t> _codes;
    bool _isLone = false;
    unsigned _loneSymbol = 0;
};

} // namespace teskel
