// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>

namespace teskel
{

/// Plain text whose wrapped lines are joined to paragraphs by blanks. A line is wrapped when it is
/// indented exactly as far as the words behind the sense number of its paragraph; every other line
/// stays one, for it may be an example, verse or code.
std::string joinedLines(std::string_view text);

} // namespace teskel
