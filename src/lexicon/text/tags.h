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

} // namespace teskel::tags
