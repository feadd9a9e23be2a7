// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>

namespace teskel
{

/// Plain text whose wrapped lines are joined to paragraphs by blanks. A line is wrapped when it is
/// indented exactly as far as the words behind the sense number of its paragraph, and the line
/// before it had no room for its first word: it would have been the widest of the text. Every other
/// line stays one, for it may be an example, verse or code.
std::string joinedLines(std::string_view text);

} // namespace teskel
