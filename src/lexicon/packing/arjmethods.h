// SPDX-License-Identifier: MIT
#pragma once

#include "lexicon/packing/arjtoken.h"

#include <string>
#include <vector>

namespace teskel
{

/// A way to pack: how hard it looks for repetitions, and the stream that it writes.
struct ArjMethod {
    int number;
    unsigned maxDistance; ///< farthest repetition that it may use
    unsigned tries;       ///< earlier places looked at per position
    unsigned goodEnough;  ///< a match this long is taken without looking one byte further
    void (*writeStream)(const std::vector<ArjToken>& tokens, std::string& out);
};

/// The method of that number, 1 to 4.
const ArjMethod& arjMethod(int number);

} // namespace teskel
