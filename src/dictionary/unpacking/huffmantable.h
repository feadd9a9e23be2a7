// SPDX-License-Identifier: MIT
#pragma once

#include "dictionary/unpacking/bitwindow.h"
#include "dictionary/unpacking/canonicalcode.h"

#include <algorithm>

namespace teskel
{

/// A canonical prefix code of a small alphabet, read by table.
///
/// Codes of up to 8 bits take one look-up, longer ones a search over their lengths.
template<unsigned Symbols>
class HuffmanTable
{
public:
    static constexpr quint16 noSymbol = Symbols;

    /// Builds the code from the length of each symbol's code, 0 to 16, 0 for none.
    /// @return false unless the codes fill the code space exactly or there are none at all
    [[nodiscard]] bool build(const CodeLengths<Symbols>& lengths);

    /// Makes a code of one symbol, which takes no bits. A symbol outside the alphabet makes a code
    /// without symbols.
    void setSingle(unsigned symbol)
    {
        _code.assignSingle(symbol);
        _lookup.fill(_code.find(0));
    }

    /// Finds the code at the top of `bits`.
    [[nodiscard]] CodeEntry find(quint64 bits) const
    {
        const CodeEntry found = _lookup[bits >> (64 - lookupBits)];
        if (found.length <= lookupBits) [[likely]]
            return found;
        return _code.find(bits, lookupBits + 1);
    }

    /// Reads a symbol, or noSymbol; 16 bits must be ready.
    unsigned decode(BitWindow& window) const
    {
        const CodeEntry found = find(window.bits());
        window.drop(found.length);
        return found.symbol;
    }

    [[nodiscard]] const CanonicalCode<Symbols>& code() const { return _code; }

private:
    static constexpr unsigned lookupBits = 8;
    static constexpr CodeEntry beyondLookup = {noSymbol, lookupBits + 1};

    CanonicalCode<Symbols> _code;
    std::array<CodeEntry, 1U << lookupBits> _lookup; // by the next bits
};

template<unsigned Symbols>
bool HuffmanTable<Symbols>::build(const CodeLengths<Symbols>& lengths)
{
    if (!_code.assign(lengths))
        return false;
    // Canonical codes ascend with their length, so the table fills from its start to its end.
    auto slot = _lookup.begin();
    unsigned index = 0;
    for (unsigned length = 1; length <= lookupBits; ++length) {
        const unsigned run = 1U << (lookupBits - length);
        for (; index < _code.countUpTo(length); ++index, slot += run)
            std::fill_n(slot, run,
                        CodeEntry{static_cast<quint16>(_code.symbolAt(index)),
                                  static_cast<quint16>(length)});
    }
    std::fill(slot, _lookup.end(), beyondLookup);
    return true;
}

} // namespace teskel
