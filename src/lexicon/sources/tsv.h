// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>
#include <vector>

/// Lines of tab-separated entries: headword, tab, article. Line feeds, tabs and backslashes within
/// a text are written "\n", "\t" and "\\". Before the tab, "|" divides several headwords of one
/// article; a "|" of a headword and the "##" at its beginning are written "\|" and "\##". A line
/// with an empty headword holds the description of the lexicon; so does one with the headword
/// "##description", for "##" begins a line that tells about the dictionary.
namespace teskel::tsv
{

std::string escaped(std::string_view text);
/// Undoes escaped(); a backslash before any other character stays.
std::string unescaped(std::string_view text);

/// As escaped(), and what would divide headwords or begin a property.
std::string escapedHeadword(std::string_view text);
/// The headwords that stand before a tab, without escapes. Of an empty one among several, nothing
/// is left.
std::vector<std::string> headwords(std::string_view text);

/// What a line tells about the dictionary: "description" of "##description". Empty for an entry.
std::string_view propertyName(std::string_view headword);

/// One line with its line feed.
std::string line(std::string_view headword, std::string_view article);

/// Takes a line apart, without unescaping. False when it has no tab.
bool split(std::string_view line, std::string_view& headword, std::string_view& article);

} // namespace teskel::tsv
