// SPDX-License-Identifier: MIT
#include "lexicon/build/lexiconbuilder.h"

#include "lexicon/build/sourcetable.h"
#include "lexicon/entries/entryintake.h"
#include "lexicon/entries/entrymerger.h"
#include "lexicon/entries/oversizesplitter.h"
#include "lexicon/file/palmdatabasewriter.h"
#include "lexicon/file/pendingfile.h"
#include "lexicon/file/recordplan.h"
#include "lexicon/file/spotcheck.h"
#include "lexicon/packing/arjmember.h"
#include "lexicon/text/counted.h"
#include "lexicon/text/givenback.h"
#include "lexicon/text/plaintext.h"

#include <utility>

namespace teskel
{

namespace
{

/// Content of the records that the reader does not use; an empty record would be a broken one.
constexpr std::string_view unusedRecord("\0", 1);

/// Of the headwords of a sound source, fewer than one in so many are lost.
constexpr uint64_t mostLostShare = 100;

/// The name inside the database, Latin-1: the description without its markup, on one line.
std::string databaseName(const std::string& description, LatinForm form)
{
    return Latin1Converter(form).converted(plainText(givenback::description(description)),
                                           Latin1Converter::Text::Headword);
}

std::string listOf(const std::vector<std::string>& paths)
{
    std::string list;
    for (const std::string& path : paths)
        list += (list.empty() ? "" : ", ") + (path == "-" ? "standard input" : path);
    return list;
}

} // namespace

LexiconBuilder::LexiconBuilder(BuildOptions options, std::ostream* terminal)
    : _options(std::move(options))
{
    _report.progress = std::make_shared<Progress>(terminal);
}

LexiconBuilder::~LexiconBuilder() = default;

/// The first description that a source gives is the lexicon's, unless there is one in the options.
bool LexiconBuilder::readSources(EntryIntake& intake, std::string& description, std::string& error)
{
    const std::string mark = _options.reversed ? " (reversed)" : "";
    if (_options.description)
        description =
            intake.description(*_options.description + mark, Latin1Converter::Text::PlainArticle);
    uint32_t order = 0;
    bool isStandardInputRead = false;
    for (const std::string& path : _options.sources) {
        if (path == "-" && std::exchange(isStandardInputRead, true)) {
            error = "the standard input can be a source only once";
            return false;
        }
        const auto source = sourceFor(path, _options.sourceKind, error, _options.encoding);
        if (!source)
            return false;
        source->setOrderBefore(order);
        if (_options.reversed)
            source->reverse();
        const bool isRead = source->read(intake, error);
        // What is no text may be all that is wrong.
        if (!source->acceptsText(error) || !isRead)
            return false;
        order = source->lastOrder();
        if (!_options.description && description.empty() && !source->description().empty())
            description = intake.description(source->description() + mark, source->textKind());
    }
    return true;
}

bool LexiconBuilder::prepare(std::string& error)
{
    return prepare(
        [&](EntryIntake& intake, std::string& description) {
            return readSources(intake, description, error);
        },
        error);
}

bool LexiconBuilder::commit(std::string& error)
{
    return _file->commit(error);
}

bool LexiconBuilder::build(std::string& error)
{
    return prepare(error) && commit(error);
}

bool LexiconBuilder::build(LexiconSource& source, std::string& error)
{
    const auto read = [&](EntryIntake& intake, std::string& description) {
        description = intake.description(source.description(), source.textKind());
        return source.read(intake, error);
    };
    return prepare(read, error) && commit(error);
}

bool LexiconBuilder::prepare(const Reader& read, std::string& error)
{
    EntrySorter sorter;
    EntryIntake intake(sorter, _report, _options.text);
    std::string description;
    _report.progress->begin("reading");
    if (!read(intake, description) || !keepsHeadwords(intake, error))
        return false;
    _report.conversions = intake.converter().counts();

    _report.progress->begin("sorting");
    const std::unique_ptr<EntryFile> entries = gather(sorter, error);
    if (!entries)
        return false;
    if (entries->count() == 0) {
        error = listOf(_options.sources) +
                (_options.sources.size() == 1 ? " holds no entries" : " hold no entries");
        return false;
    }
    const RecordPlan plan(*entries, _options.recordSize);
    if (plan.records().size() > limits::wordRecords) {
        error = "the dictionary is too large: it needs " + std::to_string(plan.records().size()) +
                " word records, a file holds 65530";
        return false;
    }
    if (plan.recordSize() != _options.recordSize)
        _report.diagnostics.add(diagnostic::recordSize, {},
                                "records of " + std::to_string(_options.recordSize) +
                                    " bytes would be too many for one file; they have up to " +
                                    std::to_string(plan.recordSize()) + " bytes instead");
    _report.headwords = entries->count();
    if (_options.strict && _report.diagnostics.warnings() > 0) {
        error = "cannot write " + _options.output + ": --strict makes " +
                counted(_report.diagnostics.warnings(), "warning an error", "warnings errors");
        return false;
    }

    auto file = std::make_unique<PendingFile>(_options.output);
    if (!write(*file, description, plan, *entries, error))
        return false;
    _report.progress->begin("checking");
    SpotCheck check(file->path());
    if (!check.run(*entries, error))
        return false;
    _report.spotChecks = check.checkedWords();
    _report.progress->end();
    _file = std::move(file);
    return true;
}

/// Merges the entries and splits what is too large for a record. Null when it failed.
std::unique_ptr<EntryFile> LexiconBuilder::gather(EntrySorter& sorter, std::string& error)
{
    const auto sorted = sorter.sorted();
    EntryMerger merger(*sorted, _report, _options.numbers, _options.text.form);
    auto entries = std::make_unique<EntryFile>();
    entries->append(merger);
    std::string trouble;
    OversizeSplitter splitter(_report);
    if (splitter.isNeeded(*entries)) {
        EntrySorter fitting;
        splitter.split(*entries, fitting);
        trouble = entries->error();
        entries = std::make_unique<EntryFile>();
        entries->append(*fitting.sorted());
        trouble += fitting.error();
    }
    trouble += sorter.error() + entries->error();
    if (trouble.empty())
        return entries;
    error = trouble;
    return nullptr;
}

bool LexiconBuilder::keepsHeadwords(const EntryIntake& intake, std::string& error) const
{
    const uint64_t lost = intake.lostHeadwords();
    if (_options.force || lost * mostLostShare <= _report.entriesRead)
        return true;
    error = listOf(_options.sources) + ": " + std::to_string(lost) + " of " +
            std::to_string(_report.entriesRead) +
            " headwords would be empty or \"?\": does the headword come first? "
            "--force builds it all the same";
    return false;
}

bool LexiconBuilder::write(PendingFile& file, const std::string& description,
                           const RecordPlan& plan, EntryFile& entries, std::string& error)
{
    ArjEncoder encoder(_options.method);
    const auto recordCount = static_cast<uint16_t>(plan.records().size() + limits::firstWordRecord);
    PalmDatabaseWriter writer(file, databaseName(description, _options.text.form), recordCount);
    writer.add(plan.index());
    writer.add(unusedRecord);
    writer.add(
        ArjMember::pack(std::string_view(description.c_str(), description.size() + 1), encoder));
    writer.add(unusedRecord);
    writer.add(unusedRecord);
    _report.progress->begin("packing", _report.headwords);
    const auto all = entries.read();
    LexiconEntry entry;
    for (const PlannedRecord& record : plan.records()) {
        _report.progress->advance(record.entries);
        std::string content;
        for (uint64_t left = record.entries; left > 0 && all->next(entry); --left)
            content += entry.packed();
        content.push_back('\0');
        _report.unpackedBytes += content.size();
        writer.add(ArjMember::pack(content, encoder));
    }
    _report.records = plan.records().size();
    _report.fileBytes = writer.size();
    if (!writer.finish()) {
        error = "cannot write " + _options.output + ": the file would grow beyond 4 GiB";
        return false;
    }
    return file.flush(error);
}

} // namespace teskel
