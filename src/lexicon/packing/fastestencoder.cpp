// SPDX-License-Identifier: MIT
#include "lexicon/packing/fastestencoder.h"

#include "dictionary/unpacking/arjformat.h"
#include "lexicon/packing/bitwriter.h"

namespace teskel
{

namespace
{

/// Writes a number whose width grows from `firstWidth` to `lastWidth`: each one bit ahead of it
/// says that the number is too large for the width so far.
void putNumber(BitWriter& bits, uint32_t number, unsigned firstWidth, unsigned lastWidth)
{
    unsigned width = firstWidth;
    while (width < lastWidth && number >= uint32_t{1} << width) {
        number -= uint32_t{1} << width;
        bits.put(1, 1);
        ++width;
    }
    if (width < lastWidth)
        bits.put(1, 0);
    bits.put(width, number);
}

} // namespace

void writeFastestStream(const std::vector<ArjToken>& tokens, std::string& out)
{
    BitWriter bits(out);
    const auto putLength = [&bits](uint32_t number) {
        putNumber(bits, number, arj::fastLengthFirstWidth, arj::fastLengthLastWidth);
    };
    for (const ArjToken& token : tokens) {
        if (token.length == 0) {
            putLength(0);
            bits.put(8, token.value);
        } else {
            putLength(token.length - arj::threshold + 1);
            putNumber(bits, token.value - 1U, arj::fastPositionFirstWidth,
                      arj::fastPositionLastWidth);
        }
    }
    bits.finish();
}

} // namespace teskel
