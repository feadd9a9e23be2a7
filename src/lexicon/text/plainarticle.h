// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace teskel
{

/// A part of a text, in bytes.
struct TextSpan {
    std::size_t begin = 0;
    std::size_t length = 0;
};

/// A plain article as rich text, UTF-8: "<" and "&" are escaped; the senses that it numbers have
/// the reader's sense numbers, a word class before them in italics; other digits with a full stop
/// at the beginning of a line are letter references.
/// @param grey  parts that stand in the background, in their order, none across a line's end
std::string richText(std::string_view plain, const std::vector<TextSpan>& grey = {});

} // namespace teskel
