// SPDX-License-Identifier: MIT
#include "lexicon/packing/arjencoder.h"

#include <bit>

namespace teskel
{

namespace
{

/// What a match must gain, in bits, for each byte that stays in front of it on its own.
constexpr int gainForWaiting = 3;

void addLiterals(std::string_view bytes, std::vector<ArjToken>& tokens)
{
    for (const char byte : bytes)
        tokens.push_back({0, static_cast<unsigned char>(byte)});
}

} // namespace

ArjEncoder::ArjEncoder(int method)
    : _method(arjMethod(method))
{
}

std::string ArjEncoder::pack(std::string_view data)
{
    tokenize(data);
    std::string packed;
    _method.writeStream(_tokens, packed);
    return packed;
}

/// The bits that a match spares, but for those that every match takes.
int ArjEncoder::gain(const Match& match) const
{
    return _method.literalBits * static_cast<int>(match.length) -
           static_cast<int>(std::bit_width(match.distance));
}

void ArjEncoder::tokenize(std::string_view data)
{
    _tokens.clear();
    _finder.start(data, _method.limits);
    for (size_t position = 0; position < data.size();) {
        Match match = _finder.find();
        if (match.length == 0) {
            addLiterals(data.substr(position++, 1), _tokens);
            continue;
        }
        unsigned passed = 1; // bytes from the position to the finder's
        while (match.length < _method.goodEnough && position + 1 < data.size()) {
            // One of the same length may be better, too: nearer.
            const Match later = _finder.find(match.length - 1);
            if (later.length == 0 || gain(later) < gain(match) + gainForWaiting) {
                passed = 2;
                break;
            }
            addLiterals(data.substr(position++, 1), _tokens);
            match = later;
        }
        _tokens.push_back(
            {static_cast<uint16_t>(match.length), static_cast<uint16_t>(match.distance)});
        position += match.length;
        _finder.skip(match.length - passed);
    }
}

} // namespace teskel
