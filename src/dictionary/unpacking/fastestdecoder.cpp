// SPDX-License-Identifier: MIT
#include "dictionary/unpacking/fastestdecoder.h"

#include "dictionary/unpacking/arjformat.h"
#include "dictionary/unpacking/cbitbuffer.h"
#include "dictionary/unpacking/outputwindow.h"

#include <algorithm>
#include <bit>

namespace teskel
{

namespace
{
constexpr int wrapWarningLine = 469;
constexpr unsigned literalBits = 9; // a length of 0 and the byte

// A number whose width is told by leading one bits: each raises it by one, from FirstWidth to
// LastWidth, and adds the numbers that the narrower width could hold.
template<unsigned FirstWidth, unsigned LastWidth>
unsigned readNumber(BitWindow& window)
{
    constexpr unsigned maxOnes = LastWidth - FirstWidth;
    const auto counted = static_cast<unsigned>(std::countl_one(window.bits()));
    const unsigned ones = std::min(counted, maxOnes);
    window.drop(ones < maxOnes ? ones + 1 : ones);
    const unsigned base = ((1U << ones) - 1) << FirstWidth;
    return base + window.take(FirstWidth + ones);
}
} // namespace

MemberStatus decodeFastest(CBitBuffer& bits, OutputWindow& output)
{
    BitWindow window = bits.window();
    while (!output.isFull()) {
        window.need(32);
        if (window.peek(1) == 0) {
            output.putLiteral(window.take(literalBits));
            continue;
        }
        const unsigned length =
            readNumber<arj::fastLengthFirstWidth, arj::fastLengthLastWidth>(window);
        const unsigned position =
            readNumber<arj::fastPositionFirstWidth, arj::fastPositionLastWidth>(window);
        output.putMatch(position + 1, length - 1 + arj::threshold, wrapWarningLine);
    }
    bits.setWindow(window);
    return MemberStatus::Ok;
}

} // namespace teskel
