// SPDX-License-Identifier: MIT
#include "lexicon/sources/input/wideencoding.h"

#include "lexicon/text/utf8.h"

#include <algorithm>
#include <cstdint>

#include <unicode/uchar.h>
#include <unicode/utf16.h>

using namespace std::string_view_literals;

namespace teskel
{

namespace
{

struct WideEncoding {
    std::string_view name;
    std::string_view mark;
    size_t width; ///< bytes of a unit
    bool isBigEndian;
};

/// The mark of UTF-16 begins that of UTF-32, and text in UTF-32 might pass for one in UTF-16.
constexpr WideEncoding encodings[] = {
    {"utf-32le", "\xFF\xFE\0\0"sv, 4, false},
    {"utf-32be", "\0\0\xFE\xFF"sv, 4, true},
    {"utf-16le", "\xFF\xFE"sv, 2, false},
    {"utf-16be", "\xFE\xFF"sv, 2, true},
};

/// Of so many units of a text, at most one is none.
constexpr size_t soundUnits = 50;

bool isControlOfNoText(char byte)
{
    constexpr char escape = 0x1B; // begins the signs of some old encodings
    return static_cast<unsigned char>(byte) < 0x20 && (byte < '\t' || byte > '\r') &&
           byte != escape;
}

uint32_t unitAt(std::string_view text, size_t place, const WideEncoding& encoding)
{
    uint32_t unit = 0;
    for (size_t i = 0; i < encoding.width; ++i) {
        const size_t next = encoding.isBigEndian ? i : encoding.width - 1 - i;
        unit = unit << 8U | static_cast<unsigned char>(text[place + next]);
    }
    return unit;
}

bool isOfText(uint32_t unit, size_t width)
{
    if (unit < 0x80)
        return unit >= 0x20 ? unit != 0x7F : !isControlOfNoText(static_cast<char>(unit));
    if (width == 2 && U16_IS_SURROGATE(unit))
        return true;
    return unit <= 0x10FFFF && u_isprint(static_cast<UChar32>(unit)) != 0;
}

bool isBlank(uint32_t character)
{
    return character == '\t' || character == '\n' || character == '\r' || character == ' ';
}

/// How many blanks and line ends there are when it is a text in an encoding; 0 when it is none.
/// Texts of all scripts have some; where half of them stand by themselves it is one of bytes.
size_t blanksIn(std::string_view text, const WideEncoding& encoding)
{
    size_t units = 0;
    size_t blanks = 0;
    size_t wrong = 0;
    for (size_t place = 0; place + encoding.width <= text.size(); place += encoding.width) {
        const uint32_t unit = unitAt(text, place, encoding);
        ++units;
        if (!isOfText(unit, encoding.width))
            ++wrong;
        else if (isBlank(unit))
            ++blanks;
    }
    const auto bytes = static_cast<size_t>(std::count_if(text.begin(), text.end(), [](char byte) {
        return isBlank(static_cast<unsigned char>(byte));
    }));
    return wrong * soundUnits <= units && bytes < 2 * blanks ? blanks : 0;
}

} // namespace

std::string_view wideEncodingOf(std::string_view head)
{
    head = head.substr(0, wideSampleBytes);
    for (const WideEncoding& encoding : encodings) {
        if (head.starts_with(encoding.mark))
            return encoding.name;
    }
    if (std::none_of(head.begin(), head.end(), isControlOfNoText))
        return {};
    const WideEncoding* best = nullptr;
    size_t mostBlanks = 0;
    for (const WideEncoding& encoding : encodings) {
        if (const size_t blanks = blanksIn(head, encoding); blanks > mostBlanks) {
            mostBlanks = blanks;
            best = &encoding;
        }
    }
    return best ? best->name : std::string_view();
}

std::size_t placeOfWideness(std::string_view head)
{
    const auto* const control = std::find_if(head.begin(), head.end(), isControlOfNoText);
    return std::min(static_cast<size_t>(control - head.begin()), utf8::wellFormedLength(head));
}

} // namespace teskel
