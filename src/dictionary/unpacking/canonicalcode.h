// SPDX-License-Identifier: MIT
#pragma once

#include "dictionary/unpacking/arjformat.h"

#include <array>

namespace teskel
{

/// A symbol and the length of its code.
struct CodeEntry {
    quint16 symbol;
    quint16 length;
};

template<unsigned Symbols>
class CanonicalCode;

/// The lengths of the codes of an alphabet, given in ascending order of their symbols.
template<unsigned Symbols>
class CodeLengths
{
public:
    /// @param symbol  below Symbols
    /// @param length  0 to 16; 0: the symbol has no code
    void add(unsigned symbol, unsigned length)
    {
        _symbols[_used] = {static_cast<quint16>(symbol), static_cast<quint16>(length)};
        _used += length != 0 ? 1 : 0;
        ++_counts[length];
    }

private:
    friend class CanonicalCode<Symbols>;

    std::array<CodeEntry, Symbols> _symbols; // those that have a code
    std::array<quint16, arj::maxCodeLength + 1> _counts{};
    unsigned _used = 0;
};

/// A canonical prefix code: one that the lengths of its codes, 0 to 16 bits, describe completely.
///
/// Codes ascend with their length, and among those of one length with their symbol.
template<unsigned Symbols>
class CanonicalCode
{
public:
    /// What find() returns where no code stands; it has no bits.
    static constexpr quint16 noSymbol = Symbols;

    /// Makes the code that has these lengths.
    /// @return false unless the codes fill the code space exactly or there are none at all
    [[nodiscard]] bool assign(const CodeLengths<Symbols>& lengths);

    /// Makes a code of one symbol, which takes no bits. A symbol outside the alphabet makes a code
    /// without symbols.
    void assignSingle(unsigned symbol)
    {
        const bool isThere = symbol < Symbols;
        _sorted[0] = static_cast<quint16>(symbol);
        _limits.fill(isThere ? codeSpace : 0);
        _ends.fill(isThere ? 1 : 0);
    }

    /// Finds the code at the top of `bits` by trying one length after the other.
    /// @param shortest  length of the shortest code that may stand there
    [[nodiscard]] CodeEntry find(quint64 bits, unsigned shortest = 0) const
    {
        const auto ahead = static_cast<unsigned>(bits >> (64 - arj::maxCodeLength));
        for (unsigned length = shortest; length <= arj::maxCodeLength; ++length) {
            if (ahead < _limits[length]) {
                const unsigned back =
                    (_limits[length] - 1 - ahead) >> (arj::maxCodeLength - length);
                return {_sorted[_ends[length] - 1U - back], static_cast<quint16>(length)};
            }
        }
        return {noSymbol, 0};
    }

    /// Number of codes of at most `length` bits: where those that are longer begin in symbolAt().
    [[nodiscard]] unsigned countUpTo(unsigned length) const { return _ends[length]; }
    /// The symbol of the code at `index` in ascending order.
    [[nodiscard]] unsigned symbolAt(unsigned index) const { return _sorted[index]; }

private:
    static constexpr quint32 codeSpace = 1U << arj::maxCodeLength;

    std::array<quint16, Symbols> _sorted;                // by code
    std::array<quint32, arj::maxCodeLength + 1> _limits; // first 16 bits beyond codes so long
    std::array<quint16, arj::maxCodeLength + 1> _ends;   // in _sorted, of codes so long
};

template<unsigned Symbols>
bool CanonicalCode<Symbols>::assign(const CodeLengths<Symbols>& lengths)
{
    quint32 limit = 0;
    quint16 end = 0;
    std::array<quint16, arj::maxCodeLength + 1> next{};
    _limits[0] = 0;
    _ends[0] = 0;
    for (unsigned length = 1; length <= arj::maxCodeLength; ++length) {
        const quint16 count = lengths._counts[length];
        next[length] = end;
        end = static_cast<quint16>(end + count);
        limit += quint32{count} << (arj::maxCodeLength - length);
        _limits[length] = limit;
        _ends[length] = end;
    }
    for (unsigned i = 0; i < lengths._used; ++i)
        _sorted[next[lengths._symbols[i].length]++] = lengths._symbols[i].symbol;
    return limit == codeSpace || limit == 0;
}

} // namespace teskel
