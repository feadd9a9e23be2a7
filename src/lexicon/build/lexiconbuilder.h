// SPDX-License-Identifier: MIT
#pragma once

#include "lexicon/entries/buildreport.h"
#include "lexicon/entries/lexiconentry.h"
#include "lexicon/sources/input/sourcetext.h"
#include "lexicon/text/textoptions.h"

#include <functional>
#include <iosfwd>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace teskel
{

class EntryFile;
class EntryIntake;
class EntrySorter;
class LexiconSource;
class PendingFile;
class RecordPlan;

/// What a build is asked for. Paths are in the bytes of the file system.
struct BuildOptions {
    /// Unpacked bytes of a word record. Larger records pack better and cost more to unpack at each
    /// look-up; docs/teskel-lexicon.md has the figures.
    static constexpr unsigned defaultRecordSize = 8192;
    static constexpr unsigned smallestRecordSize = 256;
    static constexpr unsigned largestRecordSize = limits::recordBytes;
    static constexpr int defaultMethod = 1;

    std::vector<std::string> sources; ///< merged in this order
    std::string sourceKind;           ///< of all sources; empty: as each of them looks
    std::string output;
    std::optional<std::string> description; ///< plain text, UTF-8; else a source's own
    int method = defaultMethod;
    unsigned recordSize = defaultRecordSize;
    bool numbers = true; ///< number the senses of merged articles
    bool strict = false; ///< fail when there is anything to warn of
    TextOptions text;
    EncodingOptions encoding; ///< of all sources
    /// Make the opposite direction, from the translations in the articles.
    bool reversed = false;
    bool force = false; ///< build even where many headwords are lost
};

/// Builds a dictionary file from its sources, all or nothing.
class LexiconBuilder
{
public:
    /// Shows how far it has come on `terminal`, unless that is null.
    explicit LexiconBuilder(BuildOptions options, std::ostream* terminal = nullptr);
    LexiconBuilder(const LexiconBuilder&) = delete;
    LexiconBuilder& operator=(const LexiconBuilder&) = delete;

    ~LexiconBuilder();

    /// Reads the sources, writes the file beside its target and looks words up in it. On failure
    /// returns false, leaves nothing behind and says why in `error`.
    bool prepare(std::string& error);
    /// Gives the prepared file its name, or else returns false and says why in `error`. The file is
    /// removed when its builder is destroyed without this.
    bool commit(std::string& error);

    /// Prepares the file and commits it.
    bool build(std::string& error);
    /// The same from this source instead of those in the options.
    bool build(LexiconSource& source, std::string& error);

    const BuildReport& report() const { return _report; }

private:
    using Reader = std::function<bool(EntryIntake& intake, std::string& description)>;

    bool prepare(const Reader& read, std::string& error);
    bool readSources(EntryIntake& intake, std::string& description, std::string& error);
    bool keepsHeadwords(const EntryIntake& intake, std::string& error) const;
    std::unique_ptr<EntryFile> gather(EntrySorter& sorter, std::string& error);
    bool write(PendingFile& file, const std::string& description, const RecordPlan& plan,
               EntryFile& entries, std::string& error);

    BuildOptions _options;
    BuildReport _report;
    std::unique_ptr<PendingFile> _file;
};

} // namespace teskel
