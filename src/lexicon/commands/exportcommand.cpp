// SPDX-License-Identifier: MIT
#include "lexicon/commands/commands.h"
#include "lexicon/commands/commandsupport.h"
#include "lexicon/file/pendingfile.h"
#include "lexicon/sources/tsv.h"
#include "lexicon/text/givenback.h"
#include "lexicon/text/utf8.h"

#include <functional>
#include <iostream>
#include <memory>

#include <CLI/CLI.hpp>

namespace teskel::commands
{

namespace
{

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

int exportToFile(LexiconReader& reader, const std::string& file, const std::string& output)
{
    PendingFile pending(output);
    std::string error;
    const auto write = [&pending](const std::string& line) { return pending.write(line); };
    const LexiconReader::Status status = writeEntries(reader, write, error);
    if (status != LexiconReader::Status::Ok) {
        complain(file + ": " + error);
        return exitCode(status);
    }
    if (!pending.commit(error)) {
        complain(error);
        return Failed;
    }
    return Done;
}

/// An empty `output` is the standard output.
int run(const std::string& file, const std::string& output)
{
    LexiconReader reader;
    if (const auto status = openLexicon(reader, file); status != LexiconReader::Status::Ok)
        return exitCode(status);
    if (!output.empty() && output != "-")
        return exportToFile(reader, file, output);
    std::string error;
    const auto write = [](const std::string& line) {
        std::cout << line;
        return static_cast<bool>(std::cout);
    };
    const LexiconReader::Status status = writeEntries(reader, write, error);
    if (status != LexiconReader::Status::Ok)
        complain(file + ": " + error);
    return finishOutput(exitCode(status));
}

} // namespace

Action exportTsv(CLI::App& options)
{
    struct Request {
        std::string file;
        std::string output;
    };
    const auto request = std::make_shared<Request>();
    options.add_option("FILE", request->file)->required();
    options.add_option("-o,--output", request->output,
                       "File to write instead of the standard output");
    return [request] { return run(request->file, request->output); };
}

} // namespace teskel::commands
