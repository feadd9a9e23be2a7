// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <cstddef>
#include <string>
#include <string_view>

namespace teskel
{

/// The code point's hexadecimal digits as the letters a (0) to p (15), without leading a's; a for
/// 0.
std::string hexadecimalLetters(char32_t character);

/// The reference to a character in an article: "&_", the code point's hexadecimalLetters(), ";".
///
/// It is ASCII without a digit, so it passes what drops digits and what holds Latin-1 alone; and
/// no name of an HTML entity has an underscore.
std::string letterReference(char32_t character);

/// Whether an article may show a character: no control, no surrogate, nothing that ends a paragraph
/// or turns its writing, no noncharacter, nothing beyond U+10FFFF.
bool isShowable(char32_t character);

/// A reference at the beginning of a text.
struct LetterReference {
    /// U+FFFD for what is not isShowable().
    char32_t character = 0;
    /// In bytes; 0 when the text does not begin with a reference.
    std::size_t length = 0;
};

/// Reads the reference that Latin-1 or UTF-8 `text` begins with: at most six letters after any
/// number of leading a's.
LetterReference readLetterReference(std::string_view text);
/// The same in code points.
LetterReference readLetterReference(std::u32string_view text);

/// Rich text with its references resolved. What would be markup becomes a named entity.
/// @return `markup` itself when there is no "&_" in it
QString withLetterReferencesResolved(const QString& markup);

} // namespace teskel
