// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace teskel
{

/// A reference to a character in rich text, such as "&#8211;".
struct CharacterReference {
    char32_t character = 0;
    std::size_t length = 0; ///< from "&" to ";"; 0 when there is no such reference
};

/// Reads a reference at the start of `text` when its spelling holds a digit: a number, decimal or
/// hexadecimal, or a name such as "frac12". The reader takes digits out of articles and would
/// break it.
CharacterReference readDigitReference(std::u32string_view text);

/// Plain Latin-1 text as rich text: "<" and "&" are written as references.
std::string escapedMarkup(std::string_view text);

} // namespace teskel
