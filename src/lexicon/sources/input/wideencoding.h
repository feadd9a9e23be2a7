// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <string_view>

namespace teskel
{

/// How many bytes wideEncodingOf() needs to see of a long text.
constexpr std::size_t wideSampleBytes = 1U << 16;

/// "utf-16le", "utf-16be", "utf-32le" or "utf-32be" when a text begins as one in that encoding
/// does: with a byte-order mark; or with control characters that no text has, while it is one when
/// they are taken for halves of characters. Empty otherwise.
std::string_view wideEncodingOf(std::string_view head);

/// The place of the first byte of a text in such an encoding that shows it to be no UTF-8.
std::size_t placeOfWideness(std::string_view head);

} // namespace teskel
