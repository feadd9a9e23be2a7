// SPDX-License-Identifier: MIT
#include "lexicon/commands/commands.h"
#include "lexicon/commands/commandsupport.h"
#include "lexicon/commands/outputs.h"
#include "lexicon/exports/exporttable.h"
#include "lexicon/file/leftovers.h"
#include "lexicon/file/pendingfile.h"
#include "lexicon/sources/tsv.h"
#include "lexicon/text/givenback.h"
#include "lexicon/text/plaintext.h"
#include "lexicon/text/utf8.h"

#include <algorithm>
#include <functional>
#include <iostream>
#include <memory>

#include <CLI/CLI.hpp>

namespace teskel::commands
{

namespace
{

/// The kind of export from which a build makes the same file again.
constexpr const char* tsvKind = "tsv";

struct ExportOptions {
    std::string file;
    std::string kind = tsvKind;
    std::string output; ///< empty and "-" are the standard output
    bool force = false; ///< replace a lexicon, too
};

/// Takes a line of TSV; false ends the export.
using Sink = std::function<bool(const std::string&)>;

LexiconReader::Status writeEntries(LexiconReader& reader, const Sink& write, std::string& error)
{
    // A line without a headword holds the description, so that a build gets the same file.
    if (const std::string description = reader.description(); !description.empty())
        write(tsv::line({}, description));
    return reader.visitFrom(
        {},
        [&write](std::string_view headword, std::string_view article) {
            return write(tsv::line(utf8::fromLatin1(headword), givenback::article(article)));
        },
        error);
}

/// Whether the export may write a file, by an exit code.
int checkOutput(const std::string& output, const ExportOptions& options)
{
    return isApart(output, "lexicon", options.file)
               ? checkTarget(output, Writes::AnythingElse, options.force)
               : Usage;
}

int exportToFile(LexiconReader& reader, const ExportOptions& options, const FileStates& states)
{
    if (const int code = checkOutput(options.output, options); code != Done)
        return code;
    leftovers::remove(options.output, states);
    PendingFile pending(options.output);
    std::string error;
    const auto write = [&pending](const std::string& line) { return pending.write(line); };
    const LexiconReader::Status status = writeEntries(reader, write, error);
    return finishFiles(status, options.file, error, states,
                       [&pending](std::string& why) { return pending.commit(why); });
}

int exportToOutput(LexiconReader& reader, const std::string& file, const FileStates& states)
{
    std::string error;
    const auto write = [](const std::string& line) {
        std::cout << line;
        return static_cast<bool>(std::cout);
    };
    const LexiconReader::Status status = writeEntries(reader, write, error);
    return finishReading(status, file, error, states);
}

/// The description without its markup and on one line, or else the name.
std::string titleOf(LexiconReader& reader)
{
    std::string title = plainText(reader.description());
    std::replace(title.begin(), title.end(), '\n', ' ');
    return title.empty() ? reader.name() : title;
}

int exportFor(LexiconReader& reader, const ExportOptions& options, const FileStates& states)
{
    const auto files = makeExport(options.kind, options.output, titleOf(reader));
    const std::vector<std::string> outputs = files->files();
    for (auto output = outputs.begin(); output != outputs.end(); ++output) {
        if (const int code = checkOutput(*output, options); code != Done)
            return code;
        for (auto other = outputs.begin(); other != output; ++other) {
            if (!isApart(*output, "output", *other))
                return Usage;
        }
    }
    for (const std::string& file : files->files())
        leftovers::remove(file, states);
    std::string error;
    const auto add = [&files](std::string_view headword, std::string_view article) {
        return files->add(headword, article);
    };
    const LexiconReader::Status status = reader.visitFrom({}, add, error);
    return finishFiles(status, options.file, error, states,
                       [&files](std::string& why) { return files->commit(why); });
}

int run(const ExportOptions& options)
{
    const bool toOutput = options.output.empty() || options.output == "-";
    if (toOutput && options.kind != tsvKind) {
        complain("export: --to " + options.kind + " needs -o, the name of its files");
        return Usage;
    }
    if (toOutput && !isOutputApart(options.file, "lexicon " + options.file))
        return Usage;
    const FileStates states({options.file});
    LexiconReader reader;
    if (const auto status = openLexicon(reader, options.file, states);
        status != LexiconReader::Status::Ok)
        return exitCode(status);
    std::string error;
    if (const auto status = reader.checkDescription(error); status != LexiconReader::Status::Ok)
        return finishReading(status, options.file, error, states);
    if (options.kind != tsvKind)
        return exportFor(reader, options, states);
    return toOutput ? exportToOutput(reader, options.file, states)
                    : exportToFile(reader, options, states);
}

std::vector<std::string> kinds()
{
    std::vector<std::string> names = exportNames();
    names.insert(names.begin(), tsvKind);
    return names;
}

} // namespace

Action exportLexicon(CLI::App& options)
{
    const auto request = std::make_shared<ExportOptions>();
    options.add_option("FILE", request->file)->required();
    options.add_option("--to", request->kind, "What to write")
        ->check(CLI::IsMember(kinds()))
        ->capture_default_str();
    options.add_option("-o,--output", request->output,
                       "File to write instead of the standard output; for stardict and dictd, the "
                       "files' name without its suffix");
    options.add_flag("--force", request->force, "Replace files that are lexicons");
    return [request] { return run(*request); };
}

} // namespace teskel::commands
