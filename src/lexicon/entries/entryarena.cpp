// SPDX-License-Identifier: MIT
#include "lexicon/entries/entryarena.h"

#include <algorithm>

namespace teskel
{

namespace
{
constexpr size_t blockBytes = size_t{1} << 20;
} // namespace

char* EntryArena::allocate(size_t bytes)
{
    if (bytes > _left) {
        const size_t size = std::max(bytes, blockBytes);
        // Left uninitialised: every byte handed out is written at once.
        _blocks.emplace_back(new char[size]);
        _free = _blocks.back().get();
        _left = size;
    }
    char* result = _free;
    _free += bytes;
    _left -= bytes;
    return result;
}

LexiconEntry EntryArena::make(std::string_view headword, std::string_view article, uint32_t order)
{
    LexiconEntry entry;
    char* text = allocate(headword.size() + article.size() + 2);
    entry.text = text;
    text = std::copy(headword.begin(), headword.end(), text);
    *text++ = '\0';
    text = std::copy(article.begin(), article.end(), text);
    *text = '\0';
    entry.headwordLength = static_cast<uint16_t>(headword.size());
    entry.articleLength = static_cast<uint32_t>(article.size());
    entry.order = order;
    return entry;
}

LexiconEntry EntryArena::copy(const LexiconEntry& entry)
{
    LexiconEntry copied = make(entry.headword(), entry.article(), entry.order);
    copied.writtenLength = entry.writtenLength;
    return copied;
}

/// Keeps a block: to fill it again costs less than to ask for another.
void EntryArena::clear()
{
    _blocks.resize(std::min<size_t>(_blocks.size(), 1));
    _free = _blocks.empty() ? nullptr : _blocks.front().get();
    _left = _blocks.empty() ? 0 : blockBytes; // the first may be larger
}

} // namespace teskel
