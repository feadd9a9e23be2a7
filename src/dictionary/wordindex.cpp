// SPDX-License-Identifier: MIT
#include "dictionary/wordindex.h"

#include "dictionary/foldedword.h"

#include <algorithm>
#include <cstring>
#include <limits>
#include <utility>

namespace teskel
{

namespace
{
/// One of so many keys is marked, which takes about a tenth of what the keys take.
constexpr std::size_t markedKeys = 8;

/// Spreads numbers that differ anywhere over the upper bits of their products (2^64 divided by the
/// golden ratio).
constexpr std::uint64_t spreadingFactor = 0x9E3779B97F4A7C15;

/// How many of ascending `heads` are below `wanted`. Without a branch that hangs on them: the
/// processor would guess it wrong half of the time.
std::size_t headsBelow(const std::vector<std::uint64_t>& heads, std::uint64_t wanted)
{
    const std::uint64_t* first = heads.data();
    for (std::size_t left = heads.size(); left > 0;) {
        const std::size_t half = (left + 1) / 2;
        left -= half;
        const std::uint64_t* const behind = first + half;
        first = behind[-1] < wanted ? behind : first;
    }
    return static_cast<std::size_t>(first - heads.data());
}
} // namespace

void WordIndex::take(std::unique_ptr<char[]> keys, std::size_t size, std::size_t wordRecordCount,
                     bool isWhole)
{
    clear();
    _keys = std::move(keys);
    _size = size;
    _wordRecordCount = wordRecordCount;
    _isWhole = isWhole;
}

std::size_t WordIndex::recordFor(const FoldedWord& word)
{
    Place& lastTime = _lastPlaces[word.head() * spreadingFactor >> (64 - placeBits)];
    if (isLastBelow(lastTime, word))
        return lastTime.number;
    while (!_isFrontFinal && (_front.number == 0 || word.isAbove(key(_lastOfFront), _lastHead)))
        extendFront();
    Place below;
    Place place = lastMarkBelow(word);
    while (isKey(place) && word.isAbove(key(place.offset))) {
        below = place;
        place = behind(place);
    }
    return (lastTime = below).number;
}

// Tells it of keys that are known to ascend alone.
bool WordIndex::isLastBelow(const Place& place, const FoldedWord& word) const
{
    return place.number + 1 < _front.number && word.isAbove(key(place.offset)) &&
           !word.isAbove(key(behind(place).offset));
}

bool WordIndex::isKey(const Place& place) const
{
    return place.offset < _size && *key(place.offset) != '\0' && place.number <= _wordRecordCount;
}

WordIndex::Place WordIndex::behind(const Place& place) const
{
    const std::size_t end = place.offset + std::strlen(key(place.offset));
    return {static_cast<std::uint32_t>(end + 1), place.number + 1};
}

// By as many keys as belong to a mark.
void WordIndex::extendFront()
{
    for (std::size_t count = 0; count < markedKeys; ++count) {
        // Behind a last key without its NUL fewer bytes follow than a head takes.
        _isFrontFinal = !isKey(_front);
        if (_isFrontFinal)
            return;
        const char* next = key(_front.offset);
        const FoldedHead head(next);
        _isFrontFinal =
            _front.number > 0 && foldedCompare(key(_lastOfFront), _lastHead, next, head) > 0;
        if (_isFrontFinal)
            return;
        if (_front.number % markedKeys == 0) {
            _heads.push_back(head.value);
            _offsets.push_back(_front.offset);
        }
        _lastHead = head;
        _lastOfFront = _front.offset;
        _front = behind(_front);
    }
}

// The first key when there is none below. Marks that begin as the word does are compared whole.
WordIndex::Place WordIndex::lastMarkBelow(const FoldedWord& word) const
{
    std::size_t below = headsBelow(_heads, word.head());
    const std::uint64_t highestAlike = word.head() | ~word.mask();
    if (below < _heads.size() && _heads[below] <= highestAlike) {
        const bool isHighest = highestAlike == std::numeric_limits<std::uint64_t>::max();
        const std::size_t end = isHighest ? _heads.size() : headsBelow(_heads, highestAlike + 1);
        const std::uint32_t* const offsets = _offsets.data();
        const std::uint32_t* const first = offsets + below;
        const std::uint32_t* const stop = std::partition_point(
            first, offsets + end, [&](std::uint32_t offset) { return word.isAbove(key(offset)); });
        below += static_cast<std::size_t>(stop - first);
    }
    if (below == 0)
        return {};
    return {_offsets[below - 1], static_cast<std::uint32_t>((below - 1) * markedKeys)};
}

} // namespace teskel
