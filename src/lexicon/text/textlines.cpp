// SPDX-License-Identifier: MIT
#include "lexicon/text/textlines.h"

namespace teskel
{

std::string_view takeLine(std::string_view& text)
{
    const size_t end = text.find('\n');
    const std::string_view line = text.substr(0, end);
    text.remove_prefix(end == std::string_view::npos ? text.size() : end + 1);
    return line;
}

} // namespace teskel
