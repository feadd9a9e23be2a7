// SPDX-License-Identifier: MIT
#include "dictionary/unpacking/fastestdecoder.h"

#include "dictionary/unpacking/arjformat.h"
#include "dictionary/unpacking/cbitbuffer.h"
#include "dictionary/unpacking/outputwindow.h"
#include "dictionary/unpacking/steploop.h"

#include <algorithm>
#include <array>
#include <bit>

namespace teskel
{

namespace
{
constexpr unsigned literalBits = 9; // a length of 0 and the byte

// Of a number of the widest kind: ones that tell the width, and the number.
constexpr unsigned widest(unsigned firstWidth, unsigned lastWidth)
{
    return lastWidth - firstWidth + lastWidth;
}
constexpr unsigned longestLength = widest(arj::fastLengthFirstWidth, arj::fastLengthLastWidth);
constexpr unsigned longestPosition =
    widest(arj::fastPositionFirstWidth, arj::fastPositionLastWidth);
static_assert(longestLength + longestPosition <= 56, "one refill serves a match");
static_assert(longestPosition <= arj::maxCodeLength + arj::maxOwnBits, "as steploop.h counts");

// A number whose width is told by leading one bits: each raises it by one, from FirstWidth to
// LastWidth, and adds the numbers that the narrower width could hold.
template<unsigned FirstWidth, unsigned LastWidth>
struct Number {
    unsigned prefix; // bits that tell the width
    unsigned width;
    unsigned base;

    // The number at the top of `bits`.
    constexpr explicit Number(quint64 bits)
    {
        constexpr unsigned maxOnes = LastWidth - FirstWidth;
        const auto counted = static_cast<unsigned>(std::countl_one(bits));
        const unsigned ones = std::min(counted, maxOnes);
        prefix = ones < maxOnes ? ones + 1 : ones;
        width = FirstWidth + ones;
        base = ((1U << ones) - 1) << FirstWidth;
    }
    [[nodiscard]] constexpr unsigned size() const { return prefix + width; }
    [[nodiscard]] constexpr unsigned value(quint64 bits) const
    {
        return base + static_cast<unsigned>((bits << prefix) >> 1 >> (63 - width));
    }
};
using Length = Number<arj::fastLengthFirstWidth, arj::fastLengthLastWidth>;
using Position = Number<arj::fastPositionFirstWidth, arj::fastPositionLastWidth>;

constexpr unsigned matchLength(const Length& length, quint64 bits)
{
    return length.value(bits) - 1 + arj::threshold;
}

constexpr step::Step stepAt(quint64 bits)
{
    if (bits >> 63 == 0)
        return step::literal(static_cast<unsigned>(bits >> (64 - literalBits)), literalBits);
    const Length length(bits);
    if (length.size() > step::lookupBits)
        return step::unknown;
    const step::Step match = step::match(matchLength(length, bits), length.size());
    const Position position(bits << length.size());
    if (length.size() + position.prefix > step::lookupBits)
        return match + step::openFlag;
    return match + step::position(position.prefix, position.width, false);
}

constexpr auto stepTable = [] {
    std::array<step::Step, step::tableSize> table{};
    for (quint64 ahead = 0; ahead < step::tableSize; ++ahead)
        table[ahead] = stepAt(ahead << (64 - step::lookupBits));
    return table;
}();

// The codes of a stream, which has no blocks and nothing that means nothing.
struct EndlessCodes {
    // Below zero, modulo 2^32: the first width has a topmost bit, too, in writtenPosition().
    static constexpr unsigned positionBase = 1U - (1U << arj::fastPositionFirstWidth);
    static constexpr int wrapWarningLine = 469;

    [[nodiscard]] static const step::Step* steps() { return stepTable.data(); }
    [[nodiscard]] static unsigned left() { return 2; } // enough for any step
    static void count(unsigned /*codes*/) {}

    [[nodiscard]] static Source sourceAt(quint64 bits)
    {
        const Position position(bits);
        return {position.value(bits) + 1, position.size()};
    }

    static bool readCode(BitWindow& window, OutputWindow& output)
    {
        if (window.peek(1) == 0) {
            output.putLiteral(window.take(literalBits));
            return true;
        }
        const Length length(window.bits());
        const unsigned bytes = matchLength(length, window.bits());
        window.drop(length.size());
        const Source source = sourceAt(window.bits());
        output.putMatch(source.distance, bytes, wrapWarningLine);
        window.drop(source.bits);
        return true;
    }
};
} // namespace

MemberStatus decodeFastest(CBitBuffer& bits, OutputWindow& output)
{
    EndlessCodes codes;
    BitWindow window = bits.window();
    decodeCodes(window, output, codes);
    bits.setWindow(window);
    return MemberStatus::Ok;
}

} // namespace teskel
