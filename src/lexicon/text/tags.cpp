// SPDX-License-Identifier: MIT
#include "lexicon/text/tags.h"

#include <algorithm>
#include <cctype>
#include <iterator>
#include <string>

namespace teskel::tags
{

std::string_view atBeginning(std::string_view text)
{
    if (text.size() < 2 || text.front() != '<')
        return {};
    const char next = text[1];
    if (!std::isalpha(static_cast<unsigned char>(next)) && next != '/' && next != '!')
        return {};
    const size_t end = text.find('>');
    return end == std::string_view::npos ? std::string_view() : text.substr(0, end + 1);
}

bool breaksLine(std::string_view tag)
{
    static constexpr std::string_view names[] = {"br", "p",  "li", "div", "dd", "dt",
                                                 "tr", "td", "hr", "ol",  "ul"};
    std::string name;
    for (const char c : tag.substr(1)) {
        if (!std::isalpha(static_cast<unsigned char>(c)))
            break;
        name += static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
    }
    return std::find(std::begin(names), std::end(names), name) != std::end(names);
}

} // namespace teskel::tags
