// SPDX-License-Identifier: MIT
#include "lexicon/packing/arjencoder.h"

#include "dictionary/unpacking/arjformat.h"

namespace teskel
{

ArjEncoder::ArjEncoder(int method)
    : _method(arjMethod(method))
{
}

std::string ArjEncoder::pack(std::string_view data)
{
    tokenize(data);
    std::string packed;
    packed.reserve(data.size() / 2 + 64);
    _method.writeStream(_tokens, packed);
    return packed;
}

void ArjEncoder::addLiteral(char byte)
{
    _tokens.push_back({0, static_cast<unsigned char>(byte)});
}

void ArjEncoder::addMatch(const Match& match)
{
    _tokens.push_back({static_cast<uint16_t>(match.length), static_cast<uint16_t>(match.distance)});
}

void ArjEncoder::tokenize(std::string_view data)
{
    _tokens.clear();
    _finder.start(data, {arj::threshold, arj::maxMatch, _method.maxDistance, _method.tries});
    const auto size = static_cast<unsigned>(data.size());
    Match waiting; // found at the byte before `position`, not yet written
    for (unsigned position = 0; position < size;) {
        Match match;
        if (waiting.length < _method.goodEnough)
            match = _finder.find(position, waiting.length);
        _finder.add(position);
        if (waiting.length > 0 && match.length == 0) {
            addMatch(waiting);
            const unsigned end = position - 1 + waiting.length;
            for (++position; position < end; ++position)
                _finder.add(position);
            waiting = {};
            continue;
        }
        // Either nothing waits, or the match that begins here is longer.
        if (waiting.length > 0)
            addLiteral(data[position - 1]);
        if (match.length == 0)
            addLiteral(data[position]);
        waiting = match;
        ++position;
    }
    if (waiting.length > 0)
        addMatch(waiting);
}

} // namespace teskel
