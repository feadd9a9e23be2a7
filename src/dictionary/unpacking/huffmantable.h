// SPDX-License-Identifier: MIT
#pragma once

#include "dictionary/unpacking/arjformat.h"
#include "dictionary/unpacking/bitwindow.h"

#include <algorithm>
#include <array>

namespace teskel
{

/// A canonical prefix code of at most 16 bits, read by table.
///
/// Codes of up to LookupBits bits take one look-up, longer ones a search over their lengths.
template<unsigned LookupBits, unsigned Symbols>
class HuffmanTable
{
public:
    /// What decode() returns where no code stands.
    static constexpr unsigned noSymbol = Symbols;

    /// Builds the code from the length of each symbol's code, 0 to 16, 0 for none.
    /// @return false unless the codes fill the code space exactly or there are none at all
    bool build(const std::array<quint8, Symbols>& lengths);

    /// Makes a code of one symbol, which takes no bits. A symbol outside the alphabet makes a code
    /// without symbols.
    void setSingle(unsigned symbol)
    {
        _limits.fill(0);
        _lookup.fill(symbol < Symbols ? entry(symbol, 0) : beyondLookup);
    }

    /// Reads a symbol; 16 bits must be ready.
    unsigned decode(BitWindow& window) const
    {
        const quint16 found = _lookup[window.peek(LookupBits)];
        if (found < beyondLookup) [[likely]] {
            window.drop(found & 15U);
            return found >> 4U;
        }
        return decodeLong(window);
    }

private:
    static constexpr unsigned codeSpace = 1U << arj::maxCodeLength;
    static constexpr quint16 beyondLookup = 0xFFFF;
    static_assert(LookupBits < 16 && Symbols < 0xFFF);

    static constexpr quint16 entry(unsigned symbol, unsigned length)
    {
        return static_cast<quint16>(symbol << 4U | length);
    }

    unsigned decodeLong(BitWindow& window) const
    {
        const unsigned bits = window.peek(arj::maxCodeLength);
        for (unsigned length = LookupBits + 1; length <= arj::maxCodeLength; ++length) {
            if (bits < _limits[length]) {
                window.drop(length);
                const unsigned back = (_limits[length] - 1 - bits) >> (arj::maxCodeLength - length);
                return _sorted[_ends[length] - 1U - back];
            }
        }
        return noSymbol;
    }

    std::array<quint16, 1U << LookupBits> _lookup;       // symbol and length, or beyondLookup
    std::array<quint16, Symbols> _sorted;                // by code
    std::array<quint32, arj::maxCodeLength + 1> _limits; // first 16 bits beyond codes so long
    std::array<quint16, arj::maxCodeLength + 1> _ends;   // in _sorted, of codes so long
};

template<unsigned LookupBits, unsigned Symbols>
bool HuffmanTable<LookupBits, Symbols>::build(const std::array<quint8, Symbols>& lengths)
{
    std::array<quint16, arj::maxCodeLength + 1> counts{};
    for (const quint8 length : lengths)
        ++counts[length];

    quint32 limit = 0;
    quint16 end = 0;
    std::array<quint16, arj::maxCodeLength + 1> next{};
    _limits[0] = 0;
    _ends[0] = 0;
    for (unsigned length = 1; length <= arj::maxCodeLength; ++length) {
        next[length] = end;
        end = static_cast<quint16>(end + counts[length]);
        limit += quint32{counts[length]} << (arj::maxCodeLength - length);
        _limits[length] = limit;
        _ends[length] = end;
    }
    if (limit == 0) {
        _lookup.fill(beyondLookup);
        return true;
    }
    if (limit != codeSpace)
        return false;

    for (unsigned symbol = 0; symbol < Symbols; ++symbol) {
        if (lengths[symbol] != 0)
            _sorted[next[lengths[symbol]]++] = static_cast<quint16>(symbol);
    }
    // Canonical codes ascend with their length, so the table fills from its start to its end.
    auto slot = _lookup.begin();
    unsigned index = 0;
    for (unsigned length = 1; length <= LookupBits; ++length) {
        const unsigned run = 1U << (LookupBits - length);
        for (; index < _ends[length]; ++index, slot += run)
            std::fill_n(slot, run, entry(_sorted[index], length));
    }
    std::fill(slot, _lookup.end(), beyondLookup);
    return true;
}

} // namespace teskel
