// SPDX-License-Identifier: MIT
#pragma once

#include "lexicon/entries/buildreport.h"
#include "lexicon/entries/conversionnotes.h"
#include "lexicon/entries/entryarena.h"
#include "lexicon/text/latin1converter.h"

#include <string>
#include <string_view>
#include <vector>

namespace teskel
{

/// Takes in the entries of a source: converts their texts and holds them to the format's limits.
class EntryIntake
{
public:
    /// `arena` and `report` must outlive the intake.
    EntryIntake(EntryArena& arena, BuildReport& report)
        : _arena(arena)
        , _report(report)
    {
    }

    /// So many entries are to come, where a source knows it; for those who wait.
    void expect(uint64_t entries) { _report.progress->expect(entries); }

    /// Takes an entry in UTF-8. `order` is its place in the source, `where` names that place to
    /// people ("words.tsv:17"). `kind` says what the article is.
    void add(std::string_view headword, std::string_view article, Latin1Converter::Text kind,
             uint32_t order, std::string_view where);

    /// Converts a description: at most 511 bytes of rich text.
    std::string description(std::string_view text, Latin1Converter::Text kind);

    /// Everything taken in so far; the intake starts over.
    std::vector<LexiconEntry> take();

    const Latin1Converter& converter() const { return _converter; }

private:
    void shorten(std::string& headword, std::string& article, std::string_view where);

    EntryArena& _arena;
    BuildReport& _report;
    Latin1Converter _converter;
    ConversionNotes _conversionNotes;
    std::vector<LexiconEntry> _entries;
    std::string _headword; // kept to reuse their memory
    std::string _article;
};

} // namespace teskel
