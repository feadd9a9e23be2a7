// SPDX-License-Identifier: MIT
#pragma once

#include <string_view>

/// The tags of rich text, in any encoding that has ASCII in it.
namespace teskel::tags
{

/// The tag or comment at the beginning of `text`, from "<" to the next ">"; empty when there is
/// none, as in "1 < 2".
std::string_view atBeginning(std::string_view text);

/// Whether what follows the tag stands on a new line.
bool breaksLine(std::string_view tag);

/// Whether plain text, shown as rich text, may be read as more than itself: it has what begins a
/// tag, or a reference such as "&lt;".
bool areIn(std::string_view plain);

} // namespace teskel::tags
