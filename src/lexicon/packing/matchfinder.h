// SPDX-License-Identifier: MIT
#pragma once

#include "lexicon/packing/hashchain.h"

#include <cstdint>
#include <string_view>
#include <vector>

namespace teskel
{

/// A repetition: `length` bytes that stood `distance` bytes before. Length 0 means none.
struct Match {
    unsigned length = 0;
    unsigned distance = 0;
};

/// Finds earlier occurrences of the bytes ahead in one block.
///
/// Two chains of places are kept: where a few bytes are the same, and where eight are. The second
/// is searched first: text of few words, whose short matches are too many to be looked at, has few
/// of these. The work for a byte is bounded, whatever the block holds.
class MatchFinder
{
public:
    struct Limits {
        unsigned minLength; ///< shortest match looked for, 3 to longLength; a longer one is faster
        unsigned maxLength; ///< longest match the format can express
        unsigned maxDistance; ///< farthest match the format can express
        unsigned tries;       ///< places looked at per call for a match below longLength
        unsigned longTries;   ///< the same for a longer one
    };

    static constexpr unsigned longLength = 8;

    /// Starts a new block of at most 65,535 bytes, which are copied.
    void start(std::string_view block, const Limits& limits);

    /// Searches at the next position, which is the first one at first, and steps over it: the
    /// longest match there, the nearest one of equally long ones; none when it is not longer than
    /// `longerThan`. Only where there is a next position.
    Match find(unsigned longerThan = 0);

    /// Steps over `count` positions, which later matches may begin at.
    void skip(unsigned count);

private:
    Match search(const HashChain& chain, HashChain::Link link, unsigned here, unsigned longerThan,
                 unsigned tries) const;

    Limits _limits{};
    unsigned _size = 0;
    unsigned _next = 0;
    std::vector<char> _bytes; ///< the block and room to read whole words at its end
    HashChain _short;
    HashChain _long;
};

} // namespace teskel
