// SPDX-License-Identifier: MIT
#pragma once

#include <string_view>

namespace teskel
{

/// Takes the first line off a text and returns it without its line feed.
std::string_view takeLine(std::string_view& text);

/// The first line of a text without its line feed.
std::string_view firstLine(std::string_view text);

/// The text without the blanks, tabs and carriage returns around it.
std::string_view trimmed(std::string_view text);

} // namespace teskel
