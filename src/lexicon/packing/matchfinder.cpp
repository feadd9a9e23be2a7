// SPDX-License-Identifier: MIT
#include "lexicon/packing/matchfinder.h"

#include <algorithm>
#include <limits>

namespace teskel
{

namespace
{
constexpr unsigned hashBits = 13;
constexpr unsigned hashedBytes = 3;
} // namespace

MatchFinder::MatchFinder()
    : _base(0)
    , _newest(size_t{1} << hashBits, 0)
{
}

void MatchFinder::start(std::string_view data, const Limits& limits)
{
    const auto used = static_cast<uint32_t>(_data.size());
    if (_base > std::numeric_limits<uint32_t>::max() / 2) {
        std::fill(_newest.begin(), _newest.end(), 0);
        _base = 0;
    } else {
        _base += used;
    }
    _data = data;
    _limits = limits;
    if (_previous.size() < data.size())
        _previous.resize(data.size());
}

uint32_t MatchFinder::hashAt(unsigned position) const
{
    const auto byte = [this, position](unsigned i) {
        return static_cast<uint32_t>(static_cast<unsigned char>(_data[position + i]));
    };
    const uint32_t key = byte(0) | byte(1) << 8 | byte(2) << 16;
    return (key * 2654435761U) >> (32 - hashBits);
}

Match MatchFinder::find(unsigned position, unsigned longerThan) const
{
    Match best;
    const auto left = static_cast<unsigned>(_data.size()) - position;
    const unsigned longest = std::min(left, _limits.maxLength);
    if (longest < std::max(hashedBytes, _limits.minLength) || longest <= longerThan)
        return best;
    unsigned reached = std::max(longerThan, _limits.minLength - 1);
    const char* here = _data.data() + position;
    uint32_t entry = _newest[hashAt(position)];
    for (unsigned tries = 0; tries < _limits.maxTries && entry > _base; ++tries) {
        const unsigned candidate = entry - _base - 1;
        const unsigned distance = position - candidate;
        if (distance > _limits.maxDistance)
            break;
        const char* there = _data.data() + candidate;
        if (there[reached] == here[reached]) {
            const auto end = std::mismatch(here, here + longest, there).first;
            const auto length = static_cast<unsigned>(end - here);
            if (length > reached) {
                best = {length, distance};
                reached = length;
                if (length == longest)
                    break;
            }
        }
        entry = _previous[candidate];
    }
    return best;
}

void MatchFinder::add(unsigned position)
{
    if (position + hashedBytes > _data.size())
        return;
    uint32_t& newest = _newest[hashAt(position)];
    _previous[position] = newest;
    newest = _base + position + 1;
}

} // namespace teskel
