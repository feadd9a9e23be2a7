// SPDX-License-Identifier: MIT
#pragma once

#include "lexicon/entries/entryarena.h"
#include "lexicon/entries/entrystream.h"

#include <vector>

namespace teskel
{

/// Divides sorted entries into groups of neighbours that are alike.
///
/// A group of more than largestGroup bytes comes in parts, so that memory does not grow with it.
class EntryGroups
{
public:
    /// Bytes of the entries of a group, or of one part of it.
    static constexpr size_t largestGroup = size_t{2} << 20;

    using Alike = bool (*)(const LexiconEntry&, const LexiconEntry&);

    /// `entries` must outlive the groups.
    EntryGroups(EntryStream& entries, Alike alike);

    /// The next group, empty at the end. It is valid until the next call.
    const std::vector<LexiconEntry>& next();
    /// Whether it is a further part of the group before it.
    bool isContinued() const { return _isContinued; }

private:
    void readAhead();

    EntryStream& _entries;
    Alike _alike;
    std::vector<LexiconEntry> _group;
    bool _isContinued = false;
    bool _isCut = false; // more of this group follows
    LexiconEntry _ahead; // the first entry of the next group; without text at the end
    EntryArena _arena;
    EntryArena _lastArena;
};

} // namespace teskel
