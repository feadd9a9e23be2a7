// SPDX-License-Identifier: MIT
#pragma once

#include "lexicon/packing/matchfinder.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace teskel
{

/// One step of unpacking: a literal byte (length 0) or a copy of earlier bytes.
struct ArjToken {
    uint16_t length = 0;
    uint16_t value = 0; ///< the literal byte, or the distance
};

/// Packs blocks of bytes into streams of the ARJ methods 1 to 4.
///
/// Methods 1 to 3 share one stream format and differ in how hard they look for repetitions;
/// method 4 is the plain "fastest" format without Huffman codes.
class ArjEncoder
{
public:
    /// `method` is 1, 2, 3 or 4.
    explicit ArjEncoder(int method);

    int method() const { return _method; }

    /// The packed stream of `data`, at most 65,535 bytes. Empty for empty data. Equal data gives
    /// equal bytes.
    std::string pack(std::string_view data);

private:
    struct Effort {
        unsigned tries;      ///< earlier places looked at per position
        unsigned goodEnough; ///< a match this long is taken without looking one byte further
    };

    static Effort effortOf(int method);
    void tokenize(std::string_view data);
    void addLiteral(char byte);
    void addMatch(const Match& match);

    int _method;
    MatchFinder _finder;
    std::vector<ArjToken> _tokens;
};

} // namespace teskel
