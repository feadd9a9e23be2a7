// SPDX-License-Identifier: MIT
#include "lexicon/text/tags.h"

#include <algorithm>
#include <cctype>
#include <iterator>
#include <string>

namespace teskel::tags
{

namespace
{

bool isOpened(std::string_view text)
{
    if (text.size() < 2 || text.front() != '<')
        return false;
    const char next = text[1];
    return std::isalpha(static_cast<unsigned char>(next)) || next == '/' || next == '!';
}

bool isReference(std::string_view text)
{
    if (!text.starts_with('&'))
        return false;
    const auto end = std::find_if(text.begin() + 1, text.end(), [](char c) {
        return !std::isalnum(static_cast<unsigned char>(c)) && c != '#' && c != '_';
    });
    return end != text.end() && *end == ';' && end != text.begin() + 1;
}

} // namespace

std::string_view atBeginning(std::string_view text)
{
    if (!isOpened(text))
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

bool areIn(std::string_view plain)
{
    for (size_t at = plain.find_first_of("<&"); at != std::string_view::npos;
         at = plain.find_first_of("<&", at + 1)) {
        if (isOpened(plain.substr(at)) || isReference(plain.substr(at)))
            return true;
    }
    return false;
}

} // namespace teskel::tags
