// SPDX-License-Identifier: MIT
#pragma once

#include "lexicon/entries/entryarena.h"
#include "lexicon/entries/entryfile.h"
#include "lexicon/entries/entrystream.h"

#include <memory>
#include <vector>

namespace teskel::test
{

/// All that is left of a stream, copied into the arena.
inline std::vector<LexiconEntry> listed(EntryStream& stream, EntryArena& arena)
{
    std::vector<LexiconEntry> entries;
    LexiconEntry entry;
    while (stream.next(entry))
        entries.push_back(arena.copy(entry));
    return entries;
}

/// A file of these entries.
inline std::unique_ptr<EntryFile> filed(const std::vector<LexiconEntry>& entries)
{
    auto file = std::make_unique<EntryFile>();
    for (const LexiconEntry& entry : entries)
        file->append(entry);
    return file;
}

} // namespace teskel::test
