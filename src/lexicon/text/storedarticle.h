// SPDX-License-Identifier: MIT
#pragma once

#include "lexicon/text/latin1converter.h"

#include <string>
#include <string_view>

namespace teskel
{

/// An article as a lexicon holds it, Latin-1: converted in the converter's form, its digits kept
/// from the reader.
/// @param text  UTF-8
/// @param kind  what the article is, no headword
std::string storedArticle(Latin1Converter& converter, std::string_view text,
                          Latin1Converter::Text kind);

} // namespace teskel
