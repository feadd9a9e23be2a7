// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

/// Case folding of dictionary texts: one fixed Latin-1 table, whatever the locale.
namespace teskel
{

namespace detail
{
constexpr std::array<unsigned char, 256> makeFoldTable()
{
    std::array<unsigned char, 256> table{};
    for (unsigned byte = 0; byte < 256; ++byte) {
        const bool ascii = byte >= 'a' && byte <= 'z';
        const bool accented = byte >= 0xE0 && byte <= 0xFE && byte != 0xF7; // not the division sign
        table[byte] = static_cast<unsigned char>(ascii || accented ? byte - 0x20 : byte);
    }
    return table;
}
inline constexpr std::array<unsigned char, 256> foldTable = makeFoldTable();
} // namespace detail

/// The upper-case form of a Latin-1 byte; bytes without one stay as they are.
constexpr unsigned char foldByte(unsigned char byte)
{
    return detail::foldTable[byte];
}

/// A length that no text reaches: compare texts to their end.
inline constexpr std::size_t wholeText = SIZE_MAX;

/// Compares at most `n` bytes of two folded NUL-terminated texts by unsigned bytes: negative, 0 or
/// positive.
inline int foldedCompare(const char* a, const char* b, std::size_t n = wholeText)
{
    for (; n > 0; --n, ++a, ++b) {
        const unsigned char left = foldByte(static_cast<unsigned char>(*a));
        const unsigned char right = foldByte(static_cast<unsigned char>(*b));
        if (left != right || left == 0)
            return int{left} - int{right};
    }
    return 0;
}

} // namespace teskel
