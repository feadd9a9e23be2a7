// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

/// UTF-8 as far as the lexicon tool needs it.
namespace teskel::utf8
{

/// Stands for bytes that are no UTF-8. It is no character, so that U+FFFD in a text is not taken
/// for one.
inline constexpr char32_t invalid = 0x110000;
/// What is shown in its place.
inline constexpr char32_t replacement = 0xFFFD;

/// U+FEFF, with which some programs begin a file.
inline constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";

/// The text without a byte-order mark at its beginning.
std::string_view withoutByteOrderMark(std::string_view text);

/// How many bytes of a text there are before the first that belongs to no well-formed character.
std::size_t wellFormedLength(std::string_view text);
/// Whether a text is the beginning of a character that is not complete.
bool isCut(std::string_view text);

/// The characters of a text. Every byte that begins no well-formed character gives `invalid`.
std::u32string decoded(std::string_view text);

/// The characters of a text, canonically composed (NFC) when combining marks or parts of Hangul
/// syllables are among them, and no `invalid`.
std::u32string composed(std::string_view text);

/// The UTF-8 form of characters; that of `replacement` for `invalid`.
std::string encoded(std::u32string_view characters);

/// Whether a character may join the one before it, or change places with it.
bool mayCombine(char32_t character);

/// Appends the UTF-8 form of a character, which must be one and no surrogate.
void append(std::string& text, char32_t character);

/// The UTF-8 form of Latin-1 bytes.
std::string fromLatin1(std::string_view latin1);

} // namespace teskel::utf8
