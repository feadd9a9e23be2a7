// SPDX-License-Identifier: MIT
#include "lexicon/packing/huffmanencoder.h"

#include "dictionary/unpacking/arjformat.h"
#include "lexicon/packing/bitwriter.h"
#include "lexicon/packing/huffmancode.h"

#include <array>
#include <bit>

namespace teskel
{

namespace
{

// Symbols of the alphabet in which character lengths are written: three kinds of runs of unused
// characters, then the lengths themselves.
constexpr unsigned oneUnused = 0;
constexpr unsigned shortRun = 1;
constexpr unsigned longRun = 2;
constexpr unsigned firstLength = 2; // symbol of length n is n + 2
constexpr unsigned shortestShortRun = 3;
constexpr unsigned longestShortRun = 18;
constexpr unsigned shortRunBits = 4;
constexpr unsigned shortestLongRun = 20;

unsigned charCode(const ArjToken& token)
{
    return token.length == 0 ? token.value : arj::literalCount + token.length - arj::threshold;
}

/// The number of bits of the distance minus one, which is its position code.
unsigned positionCode(const ArjToken& token)
{
    return static_cast<unsigned>(std::bit_width(token.value - 1U));
}

/// Reports the character lengths as calls of symbol(code, extra bits, extra value).
template<typename Visitor>
void visitCharLengths(const HuffmanCode& chars, Visitor symbol)
{
    const unsigned used = chars.usedSymbols();
    for (unsigned i = 0; i < used;) {
        const unsigned length = chars.length(i++);
        if (length > 0) {
            symbol(length + firstLength, 0U, 0U);
            continue;
        }
        unsigned run = 1;
        for (; i < used && chars.length(i) == 0; ++i)
            ++run;
        if (run == longestShortRun + 1) {
            // Too long for one kind and too short for the other.
            symbol(oneUnused, 0U, 0U);
            --run;
        }
        if (run < shortestShortRun) {
            for (; run > 0; --run)
                symbol(oneUnused, 0U, 0U);
        } else if (run <= longestShortRun) {
            symbol(shortRun, shortRunBits, run - shortestShortRun);
        } else {
            symbol(longRun, arj::charCountBits, run - shortestLongRun);
        }
    }
}

/// Writes the lengths of a small alphabet; after `skipIndex` of them a two-bit run of unused
/// symbols follows (0: nowhere).
void putLengths(BitWriter& bits, const HuffmanCode& code, unsigned countBits, unsigned skipIndex)
{
    if (code.isLone()) {
        bits.put(countBits, 0);
        bits.put(countBits, code.loneSymbol());
        return;
    }
    const unsigned used = code.usedSymbols();
    bits.put(countBits, used);
    for (unsigned i = 0; i < used;) {
        const unsigned length = code.length(i++);
        if (length <= 6)
            bits.put(3, length);
        else // three one bits, one more for each bit above 7, and a zero bit
            bits.put(length - 3, (1U << (length - 3)) - 2);
        if (i == skipIndex) {
            unsigned skipped = 0;
            while (skipped < 3 && i < used && code.length(i) == 0) {
                ++skipped;
                ++i;
            }
            bits.put(2, skipped);
        }
    }
}

void putCharLengths(BitWriter& bits, const HuffmanCode& chars)
{
    if (chars.isLone()) {
        bits.put(arj::lengthCountBits, 0);
        bits.put(arj::lengthCountBits, 0);
        bits.put(arj::charCountBits, 0);
        bits.put(arj::charCountBits, chars.loneSymbol());
        return;
    }
    std::array<uint32_t, arj::lengthCodes> counts{};
    visitCharLengths(chars, [&](unsigned symbol, unsigned, unsigned) { ++counts[symbol]; });
    const HuffmanCode lengths(counts);
    putLengths(bits, lengths, arj::lengthCountBits, arj::lengthSkipIndex);
    bits.put(arj::charCountBits, chars.usedSymbols());
    visitCharLengths(chars, [&](unsigned symbol, unsigned extraBits, unsigned extra) {
        bits.put(lengths.length(symbol), lengths.code(symbol));
        bits.put(extraBits, extra);
    });
}

} // namespace

void writeHuffmanStream(const std::vector<ArjToken>& tokens, std::string& out)
{
    if (tokens.empty())
        return;
    std::array<uint32_t, arj::charCodes> charCounts{};
    std::array<uint32_t, arj::positionCodes> positionCounts{};
    for (const ArjToken& token : tokens) {
        ++charCounts[charCode(token)];
        if (token.length > 0)
            ++positionCounts[positionCode(token)];
    }
    const HuffmanCode chars(charCounts);
    const HuffmanCode positions(positionCounts);

    BitWriter bits(out);
    bits.put(arj::blockSizeBits, static_cast<uint32_t>(tokens.size()));
    putCharLengths(bits, chars);
    putLengths(bits, positions, arj::positionCountBits, 0);
    for (const ArjToken& token : tokens) {
        const unsigned symbol = charCode(token);
        bits.put(chars.length(symbol), chars.code(symbol));
        if (token.length == 0)
            continue;
        const unsigned position = positionCode(token);
        bits.put(positions.length(position), positions.code(position));
        if (position > 1) // the leading one bit is implied
            bits.put(position - 1, token.value - 1U - (1U << (position - 1)));
    }
    bits.finish();
}

} // namespace teskel
