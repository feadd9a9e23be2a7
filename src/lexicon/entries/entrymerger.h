// SPDX-License-Identifier: MIT
#pragma once

#include "lexicon/entries/buildreport.h"
#include "lexicon/entries/entrygroups.h"

namespace teskel
{

/// Makes one entry of all entries with the same headword.
///
/// Their articles stand one under the other in the order of the source, numbered "1." to "9." and
/// then unnumbered, unless one of them is numbered already. A repeated article is kept once.
class EntryMerger : public EntryStream
{
public:
    /// `sorted` holds the entries in the order of a lexicon; it must outlive the merger.
    EntryMerger(EntryStream& sorted, BuildReport& report, bool numbers);

    bool next(LexiconEntry& entry) override;

private:
    LexiconEntry merged(const std::vector<LexiconEntry>& group);

    EntryGroups _groups;
    BuildReport& _report;
    bool _numbers;
    EntryArena _arena;
    std::string _article; // kept to reuse its memory
};

} // namespace teskel
