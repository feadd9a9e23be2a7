// SPDX-License-Identifier: MIT
#pragma once

#include "lexicon/entries/entryarena.h"
#include "lexicon/entries/entrystream.h"

#include <vector>

namespace teskel
{

/// Divides sorted entries into groups of neighbours that are alike.
class EntryGroups
{
public:
    using Alike = bool (*)(const LexiconEntry&, const LexiconEntry&);

    /// `entries` must outlive the groups.
    EntryGroups(EntryStream& entries, Alike alike);

    /// The next group, empty at the end. It is valid until the next call.
    const std::vector<LexiconEntry>& next();

private:
    void readAhead();

    EntryStream& _entries;
    Alike _alike;
    std::vector<LexiconEntry> _group;
    LexiconEntry _ahead; // the first entry of the next group; without text at the end
    EntryArena _arena;
    EntryArena _lastArena;
};

} // namespace teskel
