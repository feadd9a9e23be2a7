// SPDX-License-Identifier: MIT
#pragma once

#include "lexicon/entries/buildreport.h"
#include "lexicon/entries/entryarena.h"

#include <vector>

namespace teskel
{

/// Makes one entry of all entries with the same headword.
///
/// Their articles stand one under the other in the order of the source, numbered "1." to "9." and
/// then unnumbered, unless one of them is numbered already. A repeated article is kept once.
class EntryMerger
{
public:
    EntryMerger(EntryArena& arena, BuildReport& report, bool numbers)
        : _arena(arena)
        , _report(report)
        , _numbers(numbers)
    {
    }

    /// Sorts the entries and merges them.
    std::vector<LexiconEntry> merge(std::vector<LexiconEntry> entries);

private:
    LexiconEntry mergeGroup(const LexiconEntry* first, const LexiconEntry* last);

    EntryArena& _arena;
    BuildReport& _report;
    bool _numbers;
    std::string _article; // kept to reuse its memory
};

} // namespace teskel
