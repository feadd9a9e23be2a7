// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>

#include <vector>

namespace teskel
{

/// The word index of a dictionary: one key a word record, parsed once.
class WordIndex
{
public:
    /// Parses the bytes of the index record. Keys beyond the one after the last word record cannot
    /// change any result of a search and are left out.
    void parse(const char* data, std::size_t size, std::size_t wordRecordCount);
    void clear();
    [[nodiscard]] bool isLoaded() const { return _isLoaded; }
    /// Whether this is the index of a topic dictionary, a kind that is not supported.
    [[nodiscard]] bool isTopicIndex() const { return _keys.startsWith('#'); }
    /// Keys that are ended by their NUL.
    [[nodiscard]] std::size_t count() const { return _offsets.size() - (_isCut ? 1 : 0); }
    /// The key of a word record below count().
    [[nodiscard]] const char* key(std::size_t wordRecord) const
    {
        return _keys.constData() + _offsets[wordRecord];
    }
    /// Whether an empty key ends the list.
    [[nodiscard]] bool isEnded() const { return _isEnded; }

    /// The record with which a search for `word` begins: that of the last key before the first one
    /// that does not compare below it in its first `length` bytes. Searched by halves where the
    /// keys ascend, else from the front.
    [[nodiscard]] std::size_t recordFor(const char* word, std::size_t length) const;

private:
    QByteArray _keys;
    std::vector<quint32> _offsets;
    bool _isCut = false; // the last key has no NUL
    bool _isEnded = false;
    bool _isAscending = false;
    bool _isLoaded = false;
};

} // namespace teskel
