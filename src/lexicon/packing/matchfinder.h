// SPDX-License-Identifier: MIT
#pragma once

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

/// Finds earlier occurrences of the bytes ahead in one block, by chains of equal hashes.
///
/// One finder serves many blocks; starting a block costs nothing but its own bytes.
class MatchFinder
{
public:
    struct Limits {
        unsigned minLength;   ///< shortest match worth reporting, at least 3
        unsigned maxLength;   ///< longest match the format can express
        unsigned maxDistance; ///< farthest match the format can express
        unsigned maxTries;    ///< earlier places looked at per call
    };

    MatchFinder();

    /// Starts a new block; `data` must stay valid until the next start.
    void start(std::string_view data, const Limits& limits);

    /// The longest match at `position`, the nearest one of equally long ones; none when it is not
    /// longer than `longerThan`.
    Match find(unsigned position, unsigned longerThan = 0) const;

    /// Makes `position` known to later searches. Positions are added once each, in order.
    void add(unsigned position);

private:
    uint32_t hashAt(unsigned position) const;

    std::string_view _data;
    Limits _limits{};
    /// Offset that makes positions of this block differ from those of all earlier blocks.
    uint32_t _base;
    std::vector<uint32_t> _newest;   ///< hash -> base + position + 1
    std::vector<uint32_t> _previous; ///< position -> older entry of its chain
};

} // namespace teskel
