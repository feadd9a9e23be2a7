// SPDX-License-Identifier: MIT
#include "lexicon/build/lexiconbuilder.h"

#include "lexicon/entries/entryintake.h"
#include "lexicon/entries/entrymerger.h"
#include "lexicon/entries/oversizesplitter.h"
#include "lexicon/file/palmdatabasewriter.h"
#include "lexicon/file/pendingfile.h"
#include "lexicon/file/recordplan.h"
#include "lexicon/file/spotcheck.h"
#include "lexicon/packing/arjmember.h"
#include "lexicon/sources/sourcetable.h"

namespace teskel
{

namespace
{

/// Content of the records that the reader does not use; an empty record would be a broken one.
constexpr std::string_view unusedRecord("\0", 1);

/// The name inside the database: the description without its markup.
std::string databaseName(const std::string& description)
{
    std::string name;
    bool inTag = false;
    for (const char c : description) {
        if (c == '<')
            inTag = true;
        else if (c == '>' && inTag)
            inTag = false;
        else if (!inTag)
            name += c;
    }
    return name;
}

} // namespace

bool LexiconBuilder::build(std::string& error)
{
    const auto source = sourceForPath(_options.source, error);
    if (!source)
        return false;
    EntrySorter sorter;
    EntryIntake intake(sorter, _report);
    if (!source->read(intake, error))
        return false;
    const std::string description =
        _options.description
            ? intake.description(*_options.description, Latin1Converter::Text::PlainArticle)
            : intake.description(source->description(), source->textKind());
    _report.conversions = intake.converter().counts();

    const std::unique_ptr<EntryFile> entries = gather(sorter, error);
    if (!entries)
        return false;
    if (entries->count() == 0) {
        error = _options.source + " holds no entries";
        return false;
    }
    const RecordPlan plan(*entries, _options.recordSize);
    if (plan.records().size() > limits::wordRecords) {
        error = "the dictionary is too large: it needs " + std::to_string(plan.records().size()) +
                " word records, a file holds 65530";
        return false;
    }
    if (plan.recordSize() != _options.recordSize)
        _report.note("record size", "records of " + std::to_string(_options.recordSize) +
                                        " bytes would be too many for one file; they have up to " +
                                        std::to_string(plan.recordSize()) + " bytes instead");
    _report.headwords = entries->count();

    PendingFile file(_options.output);
    if (!write(file, description, plan, *entries, error))
        return false;
    SpotCheck check(file.path());
    if (!check.run(*entries, error))
        return false;
    _report.spotChecks = check.checkedWords();
    return file.commit(error);
}

/// Merges the entries and splits what is too large for a record. Null when it failed.
std::unique_ptr<EntryFile> LexiconBuilder::gather(EntrySorter& sorter, std::string& error)
{
    const auto sorted = sorter.sorted();
    EntryMerger merger(*sorted, _report, _options.numbers);
    auto entries = std::make_unique<EntryFile>();
    entries->append(merger);
    OversizeSplitter splitter(_report);
    if (splitter.isNeeded(*entries)) {
        EntrySorter fitting;
        splitter.split(*entries, fitting);
        error = entries->error();
        entries = std::make_unique<EntryFile>();
        entries->append(*fitting.sorted());
        error += fitting.error();
    }
    error += sorter.error() + entries->error();
    return error.empty() ? std::move(entries) : nullptr;
}

bool LexiconBuilder::write(PendingFile& file, const std::string& description,
                           const RecordPlan& plan, EntryFile& entries, std::string& error)
{
    ArjEncoder encoder(_options.method);
    const auto recordCount = static_cast<uint16_t>(plan.records().size() + limits::firstWordRecord);
    PalmDatabaseWriter writer(file, databaseName(description), recordCount);
    writer.add(plan.index());
    writer.add(unusedRecord);
    writer.add(
        ArjMember::pack(std::string_view(description.c_str(), description.size() + 1), encoder));
    writer.add(unusedRecord);
    writer.add(unusedRecord);
    const auto all = entries.read();
    LexiconEntry entry;
    for (const PlannedRecord& record : plan.records()) {
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
