// SPDX-License-Identifier: MIT
#pragma once

#include "lexicon/entries/buildreport.h"
#include "lexicon/entries/conversionnotes.h"
#include "lexicon/entries/entrysorter.h"
#include "lexicon/text/latin1converter.h"
#include "lexicon/text/textoptions.h"

#include <string>
#include <string_view>

namespace teskel
{

/// Takes in the entries of a source: converts their texts and holds them to the format's limits.
class EntryIntake
{
public:
    /// `entries` takes what was taken in; it and `report` must outlive the intake.
    EntryIntake(EntrySorter& entries, BuildReport& report, TextOptions options = {})
        : _entries(entries)
        , _report(report)
        , _options(options)
        , _converter(options.form)
    {
    }

    const TextOptions& options() const { return _options; }

    /// So many entries are to come, where a source knows it; for those who wait.
    void expect(uint64_t entries) { _report.progress->expect(entries); }

    /// Takes an entry in UTF-8. `order` is its place in the source, `where` names that place to
    /// people ("words.tsv:17"). `kind` says what the article is.
    void add(std::string_view headword, std::string_view article, Latin1Converter::Text kind,
             uint32_t order, std::string_view where);

    /// Converts a description: at most 511 bytes of rich text.
    std::string description(std::string_view text, Latin1Converter::Text kind);

    /// Notes what a source could not hand over as it is; see Diagnostics::add().
    void note(const DiagnosticCode& code, std::string_view where, std::string_view what)
    {
        _report.diagnostics.add(code, where, what);
    }

    const Latin1Converter& converter() const { return _converter; }

    /// How many entries have a headword of which nothing is left: empty, or nothing but "?" that
    /// the source does not have.
    uint64_t lostHeadwords() const { return _lostHeadwords; }

private:
    static bool isLost(std::string_view headword);
    /// The line, as it stands in an article, that gives a headword as written, UTF-8.
    std::string lineOf(std::string_view written);
    void storeArticle(std::string_view article, Latin1Converter::Text kind);
    void writeHeadword(std::string_view headword);
    std::size_t writtenAlready();
    void shorten(std::string_view where);

    EntrySorter& _entries;
    BuildReport& _report;
    TextOptions _options;
    Latin1Converter _converter;
    ConversionNotes _conversionNotes;
    /// The last article that was converted.
    struct {
        std::string text;
        Latin1Converter::Text kind = Latin1Converter::Text::PlainArticle;
        std::string stored;
    } _shared;
    uint64_t _lostHeadwords = 0;
    std::string _headword; // kept to reuse their memory
    std::string _article;
    std::size_t _writtenLength = 0; ///< bytes of the line that begins the article
};

} // namespace teskel
