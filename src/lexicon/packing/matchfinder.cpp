// SPDX-License-Identifier: MIT
#include "lexicon/packing/matchfinder.h"

#include <algorithm>
#include <bit>
#include <cstring>

namespace teskel
{

namespace
{

constexpr unsigned wordBytes = sizeof(uint64_t);

/// How many bytes two words share, in memory order, before the first that differs.
unsigned commonBytes(uint64_t difference)
{
    const int bits = std::endian::native == std::endian::little ? std::countr_zero(difference)
                                                                : std::countl_zero(difference);
    return static_cast<unsigned>(bits) / 8;
}

uint64_t wordAt(const char* bytes)
{
    uint64_t word = 0;
    std::memcpy(&word, bytes, wordBytes);
    return word;
}

/// How far the bytes at two places are the same, at most `longest`; they are for `known` bytes.
unsigned commonLength(const char* a, const char* b, unsigned known, unsigned longest)
{
    for (unsigned length = known; length < longest; length += wordBytes) {
        if (const uint64_t difference = wordAt(a + length) ^ wordAt(b + length); difference != 0)
            return std::min(length + commonBytes(difference), longest);
    }
    return longest;
}

} // namespace

void MatchFinder::start(std::string_view block, const Limits& limits)
{
    _limits = limits;
    _size = static_cast<unsigned>(block.size());
    _next = 0;
    _bytes.assign(block.begin(), block.end());
    _bytes.resize(_size + wordBytes, '\0');
    _short.start(_size, limits.minLength);
    _long.start(_size, longLength);
}

Match MatchFinder::search(const HashChain& chain, HashChain::Link link, unsigned here,
                          unsigned longerThan, unsigned tries) const
{
    Match best;
    const unsigned longest = std::min(_size - here, _limits.maxLength);
    // Links up to this one lead too far back, or nowhere.
    const unsigned tooFar = here > _limits.maxDistance ? here - _limits.maxDistance : 0;
    unsigned reached = std::max(longerThan, chain.length() - 1);
    if (link <= tooFar || reached >= longest)
        return best;
    const char* const bytes = _bytes.data();
    const uint64_t beginning = chain.key(wordAt(bytes + here));
    // A longer match than the best so far has the same bytes at its end; most have not.
    unsigned end = reached + 1 - chain.length();
    uint64_t ending = chain.key(wordAt(bytes + here + end));
    for (; link > tooFar && tries > 0; --tries) {
        const unsigned place = link - 1U;
        const char* const there = bytes + place;
        link = chain.older(place);
        if (chain.key(wordAt(there + end)) != ending || chain.key(wordAt(there)) != beginning)
            continue;
        const unsigned length = commonLength(bytes + here, there, chain.length(), longest);
        if (length <= reached)
            continue;
        best = {length, here - place};
        if (length == longest)
            break;
        reached = length;
        end = reached + 1 - chain.length();
        ending = chain.key(wordAt(bytes + here + end));
    }
    return best;
}

Match MatchFinder::find(unsigned longerThan)
{
    const unsigned here = _next++;
    const uint64_t word = wordAt(_bytes.data() + here);
    const HashChain::Link shortLink = _short.add(here, word);
    const HashChain::Link longLink = _long.add(here, word);
    if (longLink != 0) {
        const Match found = search(_long, longLink, here, longerThan, _limits.longTries);
        if (found.length > 0)
            return found;
    }
    if (shortLink == 0 || longerThan + 1 >= longLength)
        return {};
    return search(_short, shortLink, here, longerThan, _limits.tries);
}

void MatchFinder::skip(unsigned count)
{
    for (const unsigned end = _next + count; _next < end; ++_next) {
        const uint64_t word = wordAt(_bytes.data() + _next);
        _short.add(_next, word);
        _long.add(_next, word);
    }
}

} // namespace teskel
