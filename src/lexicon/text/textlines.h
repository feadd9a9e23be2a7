// SPDX-License-Identifier: MIT
#pragma once

#include <string_view>

namespace teskel
{

/// Takes the first line off a text and returns it without its line feed.
std::string_view takeLine(std::string_view& text);

} // namespace teskel
