// SPDX-License-Identifier: MIT
#pragma once

#include "lexicon/entries/buildreport.h"
#include "lexicon/entries/entryfile.h"
#include "lexicon/entries/entrysorter.h"

#include <string>
#include <string_view>
#include <unordered_set>
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
    /// What the part of an article that was cut off begins with.
    static constexpr std::string_view continuation = "&hellip;\n";
    /// The headword in front of " (2)" or another number, empty when there is no such suffix.
    static std::string_view continuedBy(std::string_view headword);

    explicit OversizeSplitter(BuildReport& report)
        : _report(report)
    {
    }

    /// Whether any of the merged entries has to be split.
    bool isNeeded(EntryFile& merged);
    /// Splits what has to be; gives all entries to `fitting`. False when they could not be kept.
    bool split(EntryFile& merged, EntrySorter& fitting);

private:
    using Group = std::vector<LexiconEntry>;

    void noteTakenNames(EntryFile& merged);
    bool splitGroup(const Group& group, bool isContinued, EntrySorter& fitting);
    void report(std::string_view headword);
    std::string continuedHeadword(std::string_view headword);

    BuildReport& _report;
    std::unordered_set<std::string> _oversize; ///< folded headwords that need continuations
    std::unordered_set<std::string> _taken;    ///< folded headwords that look like continuations
    unsigned _part = 1;                        ///< number of this group's last continuation
};

} // namespace teskel
