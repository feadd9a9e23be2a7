// SPDX-License-Identifier: MIT
#pragma once

#include "dictionary/latin1fold.h"

#include <QtEndian>

#include <algorithm>
#include <bit>
#include <cstddef>
#include <cstdint>

namespace teskel
{

/// The first eight bytes of a text, folded, with zeros behind its end: two heads compare as the
/// bytes do that they are made of.
struct FoldedHead {
    static constexpr std::size_t bytes = 8; ///< that must be there to be read, also behind the NUL

    std::uint64_t value = 0;

    FoldedHead() = default;
    /// @param text  ended by a NUL, `bytes` readable bytes
    explicit FoldedHead(const char* text)
        : value(folded(qFromBigEndian<std::uint64_t>(text)))
    {
    }

    /// Whether the text ends within the head.
    [[nodiscard]] bool isWholeText() const { return (value & 0xFF) == 0; }

private:
    static constexpr std::uint64_t each(std::uint64_t byte) { return byte * 0x0101010101010101; }

    // All bytes at once. Sums of their lower seven bits carry into the eighth and no further.
    static constexpr std::uint64_t folded(std::uint64_t text)
    {
        const std::uint64_t low = text & each(0x7F);
        const auto from = [low](unsigned byte) { return low + each(0x80 - byte); };
        const std::uint64_t isAscii = ~text & from('a') & ~from('z' + 1);
        const std::uint64_t isDivisionSign = ~((low ^ each(0x77)) + each(0x7F));
        const std::uint64_t isAccented = text & from(0x60) & ~from(0x7F) & ~isDivisionSign;
        const std::uint64_t isSmall = (isAscii | isAccented) & each(0x80);
        const std::uint64_t isNul = ~(from(0x01) | text) & each(0x80);
        const std::uint64_t kept =
            isNul == 0 ? ~std::uint64_t{0} : ~(~std::uint64_t{0} >> std::countl_zero(isNul));
        return (text - (isSmall >> 2)) & kept;
    }
};

/// Compares two texts as foldedCompare() does, by their heads where these tell.
inline int foldedCompare(const char* a, FoldedHead headOfA, const char* b, FoldedHead headOfB)
{
    if (headOfA.value != headOfB.value)
        return headOfA.value < headOfB.value ? -1 : 1;
    return headOfA.isWholeText() ? 0 : foldedCompare(a + FoldedHead::bytes, b + FoldedHead::bytes);
}

/// A word to be compared with many texts.
class FoldedWord
{
public:
    /// @param word    ended by a NUL; must outlive this
    /// @param length  bytes that are compared at most
    FoldedWord(const char* word, std::size_t length)
        : _word(word)
        , _length(length)
    {
        const std::size_t head = std::min(length, FoldedHead::bytes);
        if (head > 0)
            _mask = ~std::uint64_t{0} << 8 * (FoldedHead::bytes - head);
        char bytes[FoldedHead::bytes] = {};
        for (std::size_t at = 0; at < head && word[at] != '\0'; ++at)
            bytes[at] = word[at];
        _head = FoldedHead(bytes).value;
    }

    /// The word's head and the bits of heads that count.
    [[nodiscard]] std::uint64_t head() const { return _head; }
    [[nodiscard]] std::uint64_t mask() const { return _mask; }

    /// Whether a text compares below the word.
    /// @param text  ended by a NUL, FoldedHead::bytes readable bytes
    [[nodiscard]] bool isAbove(const char* text) const { return isAbove(text, FoldedHead(text)); }
    /// The same for a text whose head is known.
    [[nodiscard]] bool isAbove(const char* text, FoldedHead headOfText) const
    {
        const std::uint64_t head = headOfText.value & _mask;
        return head != _head ? head < _head : compareRest(text) < 0;
    }
    /// Whether a text, likewise, equals the word.
    [[nodiscard]] bool isEqual(const char* text) const
    {
        return (FoldedHead(text).value & _mask) == _head && compareRest(text) == 0;
    }

private:
    // Of texts with the same head.
    [[nodiscard]] int compareRest(const char* text) const
    {
        constexpr std::size_t done = FoldedHead::bytes;
        const bool isOver = _length <= done || (_head & 0xFF) == 0;
        return isOver ? 0 : foldedCompare(text + done, _word + done, _length - done);
    }

    const char* _word;
    std::size_t _length;
    std::uint64_t _head = 0;
    std::uint64_t _mask = 0;
};

} // namespace teskel
