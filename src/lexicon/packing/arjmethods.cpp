// SPDX-License-Identifier: MIT
#include "lexicon/packing/arjmethods.h"

#include "dictionary/unpacking/arjformat.h"
#include "lexicon/packing/fastestencoder.h"
#include "lexicon/packing/huffmanencoder.h"

#include <algorithm>
#include <iterator>

namespace teskel
{

namespace
{

using Limits = MatchFinder::Limits;

// In text a match of three bytes takes more bits than Huffman codes of its bytes, as a rule.
constexpr unsigned shortestCoded = 4;
constexpr unsigned shortestPlain = arj::threshold;

constexpr Limits coded(unsigned tries, unsigned longTries)
{
    return {shortestCoded, arj::maxMatch, arj::encoderWindow, tries, longTries};
}

constexpr Limits plain{shortestPlain, arj::maxMatch, arj::fastMaxDistance, 24, 48};

// Bits of a byte on its own: of text by a Huffman code, and as method 4 writes it.
constexpr int codedBits = 3;
constexpr int plainBits = 9;

constexpr ArjMethod methods[] = {
    {arj::MostCompressed, coded(8, 80), 128, codedBits, writeHuffmanStream},
    {arj::Compressed, coded(8, 16), 32, codedBits, writeHuffmanStream},
    {arj::Faster, coded(4, 4), 16, codedBits, writeHuffmanStream},
    {arj::Fastest, plain, 64, plainBits, writeFastestStream},
};

} // namespace

const ArjMethod& arjMethod(int number)
{
    return *std::find_if(std::begin(methods), std::prev(std::end(methods)),
                         [number](const ArjMethod& each) { return each.number == number; });
}

} // namespace teskel
