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

constexpr ArjMethod methods[] = {
    {arj::MostCompressed, arj::encoderWindow, 1024, arj::maxMatch, writeHuffmanStream},
    {arj::Compressed, arj::encoderWindow, 48, 64, writeHuffmanStream},
    {arj::Faster, arj::encoderWindow, 8, 16, writeHuffmanStream},
    {arj::Fastest, arj::fastMaxDistance, 48, 32, writeFastestStream},
};

} // namespace

const ArjMethod& arjMethod(int number)
{
    return *std::find_if(std::begin(methods), std::prev(std::end(methods)),
                         [number](const ArjMethod& each) { return each.number == number; });
}

} // namespace teskel
