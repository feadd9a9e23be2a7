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

std::string_view firstLine(std::string_view text)
{
    return takeLine(text);
}

std::string_view trimmed(std::string_view text)
{
    const size_t begin = text.find_first_not_of(" \t\r");
    if (begin == std::string_view::npos)
        return {};
    return text.substr(begin, text.find_last_not_of(" \t\r") - begin + 1);
}

} // namespace teskel
