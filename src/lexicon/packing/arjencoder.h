// SPDX-License-Identifier: MIT
#pragma once

#include "lexicon/packing/arjmethods.h"
#include "lexicon/packing/matchfinder.h"

#include <string>
#include <string_view>
#include <vector>

namespace teskel
{

/// Packs blocks of bytes into streams of the ARJ methods 1 to 4.
///
/// Methods 1 to 3 share one stream format and differ in how hard they look for repetitions;
/// method 4 is the plain "fastest" format without Huffman codes.
class ArjEncoder
{
public:
    /// `method` is 1, 2, 3 or 4.
    explicit ArjEncoder(int method);

    int method() const { return _method.number; }

    /// The packed stream of `data`, at most 65,535 bytes. Empty for empty data. Equal data gives
    /// equal bytes.
    std::string pack(std::string_view data);

private:
    void tokenize(std::string_view data);
    int gain(const Match& match) const;

    const ArjMethod& _method;
    MatchFinder _finder;
    std::vector<ArjToken> _tokens;
};

} // namespace teskel
