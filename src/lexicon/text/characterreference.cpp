// SPDX-License-Identifier: MIT
#include "lexicon/text/characterreference.h"

#include "lexicon/text/charactertables.h"

#include <algorithm>
#include <charconv>

namespace teskel
{

namespace
{

constexpr size_t longestReference = 12;

char32_t characterOfNumber(std::string_view digits)
{
    int base = 10;
    if (!digits.empty() && (digits.front() == 'x' || digits.front() == 'X')) {
        digits.remove_prefix(1);
        base = 16;
    }
    unsigned number = 0;
    const char* end = digits.data() + digits.size();
    const auto parsed = std::from_chars(digits.data(), end, number, base);
    const bool isSurrogate = number >= 0xD800 && number <= 0xDFFF;
    if (parsed.ec != std::errc() || parsed.ptr != end || number > 0x10FFFF || isSurrogate)
        return 0;
    return number;
}

} // namespace

CharacterReference readDigitReference(std::u32string_view text)
{
    const size_t end = text.substr(0, longestReference).find(U';');
    if (end == std::u32string_view::npos || end < 2)
        return {};
    std::string name;
    for (const char32_t character : text.substr(1, end - 1)) {
        if (character > 0x7F)
            return {};
        name.push_back(static_cast<char>(character));
    }
    const char32_t character = name.front() == '#'
                                   ? characterOfNumber(std::string_view(name).substr(1))
                                   : characterOfDigitEntity(name);
    if (character == 0)
        return {};
    return {character, end + 1};
}

std::string escapedMarkup(std::string_view text)
{
    std::string result;
    result.reserve(text.size());
    for (auto begin = text.begin(); begin != text.end();) {
        const auto end =
            std::find_if(begin, text.end(), [](char c) { return c == '<' || c == '&'; });
        result.append(begin, end);
        if (end == text.end())
            break;
        result += *end == '<' ? "&lt;" : "&amp;";
        begin = end + 1;
    }
    return result;
}

} // namespace teskel
