// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string>
#include <string_view>

/// What becomes of characters that Latin-1 lacks; docs/teskel-lexicon.md lists it for users.
namespace teskel
{

/// The name of the HTML 4 entity of a character outside Latin-1, when it consists of letters only;
/// empty otherwise. Names with digits are left out because the reader takes digits out of articles.
std::string_view entityName(char32_t character);

/// Latin-1 text that stands in for a character outside Latin-1, possibly empty; nothing when no
/// stand-in is known.
std::optional<std::string> transliteration(char32_t character);

/// The character of an HTML 4 entity whose name holds a digit, such as "frac12"; 0 for other names.
char32_t characterOfDigitEntity(std::string_view name);

/// The character that Windows-1252 has in the place of a control character from U+0080 to U+009F;
/// any other character itself. Texts that were once taken for Latin-1 have such places.
/// Source: the Unicode Consortium's mapping table CP1252.TXT.
char32_t windowsCharacter(char32_t character);

} // namespace teskel
