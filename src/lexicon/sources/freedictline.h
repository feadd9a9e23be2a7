// SPDX-License-Identifier: MIT
#pragma once

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
};

FirstLine readFirstLine(std::string_view line);

/// The forms named in the parentheses of `grammar`, without notes and tags.
std::vector<std::string> forms(std::string_view grammar);

/// A further line, ready to be shown: no pronunciations, no braces around references, single
/// blanks.
std::string tidyLine(std::string_view line);

} // namespace teskel::freedict
