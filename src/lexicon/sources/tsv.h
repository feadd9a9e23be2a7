// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>

/// Lines of tab-separated entries: headword, tab, article. Line feeds, tabs and backslashes within
/// a text are written "\n", "\t" and "\\". A line with an empty headword holds the description of
/// the lexicon.
namespace teskel::tsv
{

std::string escaped(std::string_view text);
/// Undoes escaped(); a backslash before any other character stays.
std::string unescaped(std::string_view text);

/// One line with its line feed.
std::string line(std::string_view headword, std::string_view article);

/// Takes a line apart, without unescaping. False when it has no tab.
bool split(std::string_view line, std::string_view& headword, std::string_view& article);

} // namespace teskel::tsv
