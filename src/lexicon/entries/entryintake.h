// SPDX-License-Identifier: MIT
#pragma once

#include "lexicon/entries/buildreport.h"
#include "lexicon/entries/entrysorter.h"
#include "lexicon/text/latin1converter.h"

#include <string>
#include <string_view>

namespace teskel
{

/// Takes in the entries of a source: converts their texts and holds them to the format's limits.
class EntryIntake
{
public:
    /// `entries` takes what was taken in; it and `report` must outlive the intake.
    EntryIntake(EntrySorter& entries, BuildReport& report)
        : _entries(entries)
        , _report(report)
    {
    }

    /// Takes an entry in UTF-8. `order` is its place in the source, `where` names that place to
    /// people ("line 17"). `kind` says what the article is.
    void add(std::string_view headword, std::string_view article, Latin1Converter::Text kind,
             uint32_t order, std::string_view where);

    /// Converts a description: at most 511 bytes of rich text.
    std::string description(std::string_view text, Latin1Converter::Text kind);

    const Latin1Converter& converter() const { return _converter; }

private:
    void shorten(std::string& headword, std::string& article, std::string_view where);

    EntrySorter& _entries;
    BuildReport& _report;
    Latin1Converter _converter;
    std::string _headword; // kept to reuse their memory
    std::string _article;
};

} // namespace teskel
