// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>

/// Other markup languages as the rich text of a lexicon. UTF-8. References stay as they are, and a
/// "<" that begins no tag is escaped, as is the "&" of what would be a letter reference.
namespace teskel::markup
{

/// HTML: what ends a line there becomes a line feed, line feeds become blanks; links and pictures,
/// scripts and styles are left out. Every other tag stays.
std::string fromHtml(std::string_view text);

/// The XML Dictionary Exchange Format as it stands in articles: the tags that say how something
/// looks stay, the others show what they mark or are left out.
std::string fromXdxf(std::string_view text);

/// Pango's markup: the tags that rich text knows stay, others are left out.
std::string fromPango(std::string_view text);

} // namespace teskel::markup
