// SPDX-License-Identifier: MIT
#pragma once

#include "lexicon/entries/lexiconentry.h"

#include <memory>
#include <vector>

namespace teskel
{

/// Holds the texts of many entries in few large blocks, until it is destroyed.
class EntryArena
{
public:
    /// Copies both texts. The headword has 1 to 511 bytes; neither text holds a NUL.
    LexiconEntry make(std::string_view headword, std::string_view article, uint32_t order);
    LexiconEntry copy(const LexiconEntry& entry);

    /// Forgets all entries.
    void clear();

private:
    char* allocate(size_t bytes);

    std::vector<std::unique_ptr<char[]>> _blocks;
    char* _free = nullptr;
    size_t _left = 0;
};

} // namespace teskel
