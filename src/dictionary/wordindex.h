// SPDX-License-Identifier: MIT
#pragma once

#include "dictionary/foldedword.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <vector>

namespace teskel
{

/// The word index of a dictionary: one key a word record, searched where it lies.
///
/// Keys are searched by halves as far as they are known to ascend. How far that is, searches find
/// out, each as far as it has to; behind the first key out of order every key is looked at, so that
/// the results are always those of a search from the front.
class WordIndex
{
public:
    /// The key with which the index of a topic dictionary begins, a kind that is not supported.
    static constexpr char topicMark = '#';

    /// Takes the bytes of the index record. Keys beyond the one after the last word record cannot
    /// change any result of a search and are not looked at.
    /// @param keys     `size` bytes and FoldedHead::bytes NULs behind them, from new[]
    /// @param isWhole  whether these are all bytes of the record, and not its first ones
    void take(std::unique_ptr<char[]> keys, std::size_t size, std::size_t wordRecordCount,
              bool isWhole);
    void clear() { *this = {}; }
    /// Whether all bytes of the record are here.
    [[nodiscard]] bool isWhole() const { return _isWhole; }
    [[nodiscard]] bool isEmpty() const { return !isKey({}); }
    [[nodiscard]] bool isTopicIndex() const { return _size > 0 && *key(0) == topicMark; }

    /// Of a whole index: the record with which a search for `word` begins, which is that of the
    /// last key before the first one that does not compare below it.
    [[nodiscard]] std::size_t recordFor(const FoldedWord& word);

private:
    /// One key.
    struct Place {
        std::uint32_t offset = 0; ///< in bytes
        std::uint32_t number = 0; ///< of keys before it
    };

    [[nodiscard]] const char* key(std::size_t offset) const { return _keys.get() + offset; }
    [[nodiscard]] bool isKey(const Place& place) const;
    [[nodiscard]] Place behind(const Place& place) const;
    void extendFront();
    [[nodiscard]] Place lastMarkBelow(const FoldedWord& word) const;
    [[nodiscard]] bool isLastBelow(const Place& place, const FoldedWord& word) const;

    std::unique_ptr<char[]> _keys;
    std::size_t _size = 0;
    std::size_t _wordRecordCount = 0;
    bool _isWhole = false;

    Place _front;                   // behind the keys that are known to ascend
    std::uint32_t _lastOfFront = 0; // the offset of the last of them
    FoldedHead _lastHead;           // and its first bytes
    bool _isFrontFinal = false;
    // Every so many of these keys is marked: its first bytes, and its offset.
    std::vector<std::uint64_t> _heads;
    std::vector<std::uint32_t> _offsets;
    static constexpr int placeBits = 8;
    // The last keys below words that were searched before.
    std::array<Place, 1 << placeBits> _lastPlaces;
};

} // namespace teskel
