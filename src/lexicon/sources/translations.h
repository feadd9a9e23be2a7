// SPDX-License-Identifier: MIT
#pragma once

#include "lexicon/text/latin1converter.h"

#include <string>
#include <string_view>
#include <vector>

namespace teskel
{

/// The translations that an article lists, UTF-8 and plain: what commas, semicolons and line ends
/// divide, without what stands in brackets. Sense numbers, examples, references and notes are none;
/// neither is what has more than six words, which explains rather than translates.
std::vector<std::string> translationsIn(std::string_view article, Latin1Converter::Text kind);

} // namespace teskel
