// SPDX-License-Identifier: MIT
#pragma once

#include "lexicon/text/plainarticle.h"

#include <string>
#include <string_view>
#include <vector>

/// Single lines of FreeDict articles. UTF-8.
namespace teskel::freedict
{

/// The first line of an article: "word /pronunciation/ (forms) <tags>".
struct FirstLine {
    std::string word;    ///< as written
    std::string grammar; ///< forms and tags without pronunciations
    std::string spoken;  ///< the same with the pronunciations in their places
};

FirstLine readFirstLine(std::string_view line);

/// The forms named in the parentheses of `grammar`, without notes and tags.
std::vector<std::string> forms(std::string_view grammar);

/// The pronunciations in what follows a word, slashes included.
std::vector<TextSpan> pronunciations(std::string_view spoken);

/// A further line, ready to be shown: no braces around references, single blanks, pronunciations
/// only when they are kept.
std::string tidyLine(std::string_view line, bool keepsPronunciations);

} // namespace teskel::freedict
