// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace teskel
{

/// What a text that is no UTF-8 is in, by names that TextDecoder takes.
struct EncodingGuess {
    std::string name;
    bool isSure = false;             ///< nothing else comes near
    std::vector<std::string> others; ///< that read the text otherwise and come near
};

/// By what becomes of the words of a text that are no UTF-8 in each encoding that texts are met in;
/// where several will do, by what ICU takes those words for. Of encodings that read them alike it
/// is the one that is used most.
EncodingGuess guessEncoding(std::string_view text);

} // namespace teskel
