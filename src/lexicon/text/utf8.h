// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

/// UTF-8 as far as the lexicon tool needs it.
namespace teskel::utf8
{

/// Stands for bytes that are no UTF-8.
inline constexpr char32_t invalid = 0xFFFD;

/// Reads the character at `position` and advances behind it. A byte that begins no well-formed
/// character gives `invalid` and is skipped alone.
char32_t next(std::string_view text, std::size_t& position);

/// Appends a character.
void append(std::string& out, char32_t character);

/// The UTF-8 form of Latin-1 bytes.
std::string fromLatin1(std::string_view latin1);

/// The canonically composed form (NFC). Text without combining marks is handed back as it is.
std::string composed(std::string_view text);

} // namespace teskel::utf8
