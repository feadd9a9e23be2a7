// SPDX-License-Identifier: MIT
#pragma once

#include "lexicon/packing/arjtoken.h"
#include "lexicon/packing/matchfinder.h"

#include <string>
#include <vector>

namespace teskel
{

/// A way to pack: how hard it looks for repetitions, and the stream that it writes.
struct ArjMethod {
    int number;
    MatchFinder::Limits limits;
    unsigned goodEnough; ///< a match this long is taken without looking further
    int literalBits;     ///< what a byte takes that is in no match, about
    void (*writeStream)(const std::vector<ArjToken>& tokens, std::string& out);
};

/// The method of that number, 1 to 4.
const ArjMethod& arjMethod(int number);

} // namespace teskel
