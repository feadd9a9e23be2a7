// SPDX-License-Identifier: MIT
#pragma once

#include "lexicon/entries/buildreport.h"
#include "lexicon/entries/entryarena.h"

#include <vector>

namespace teskel
{

/// Makes words that fold alike fit into one record, in which they have to stay together.
///
/// What does not fit goes on under the same headword with " (2)", " (3)" and so on behind it; the
/// part of an article that was cut off begins with a line of three dots.
class OversizeSplitter
{
public:
    OversizeSplitter(EntryArena& arena, BuildReport& report)
        : _arena(arena)
        , _report(report)
    {
    }

    /// Takes and gives back sorted entries.
    std::vector<LexiconEntry> split(std::vector<LexiconEntry> entries);

private:
    using Group = std::vector<LexiconEntry>;

    void splitGroup(const Group& group, const std::vector<LexiconEntry>& all);
    void cut(const std::string& headword, std::string& article, size_t room, uint32_t order);
    std::string continuedHeadword(std::string_view headword, const std::vector<LexiconEntry>& all);

    EntryArena& _arena;
    BuildReport& _report;
    std::vector<LexiconEntry> _fitting;
    unsigned _part = 1; ///< number of the last continuation of this group
};

} // namespace teskel
