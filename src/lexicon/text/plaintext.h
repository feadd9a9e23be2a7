// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>

namespace teskel
{

/// Rich text of a lexicon as plain text, both UTF-8: tags left out, those that break a line as line
/// feeds, references and entities as their characters.
std::string plainText(std::string_view markup);

} // namespace teskel
