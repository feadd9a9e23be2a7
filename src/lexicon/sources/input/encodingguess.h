// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>

namespace teskel
{

/// "utf-16le" or "utf-16be" when a text begins as one in UTF-16 does: with a byte-order mark, or
/// with a zero in every second byte. Empty otherwise.
std::string_view utf16Of(std::string_view head);

/// The encoding that text which is no UTF-8 is most likely in, by the name that TextDecoder takes:
/// Latin-1, Windows-1252 when it has bytes that Latin-1 has no characters for, or where most of its
/// letters are beyond ASCII what ICU takes them for.
std::string encodingOf(std::string_view text);

} // namespace teskel
