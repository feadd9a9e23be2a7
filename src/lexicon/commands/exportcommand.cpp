// SPDX-License-Identifier: MIT
#include "lexicon/commands/commands.h"
#include "lexicon/commands/commandsupport.h"
#include "lexicon/file/pendingfile.h"
#include "lexicon/sources/tsv.h"
#include "lexicon/text/utf8.h"

#include <cerrno>
#include <cstring>
#include <fstream>
#include <iostream>

namespace teskel::commands
{

namespace
{

LexiconReader::Status writeEntries(LexiconReader& reader, std::ostream& out, std::string& error)
{
    // A line without a headword holds the description, so that a build gets the same file.
    if (const std::string description = reader.description(); !description.empty())
        out << tsv::line({}, description);
    return reader.visitFrom(
        {},
        [&out](std::string_view headword, std::string_view article) {
            out << tsv::line(utf8::fromLatin1(headword), utf8::fromLatin1(article));
            return static_cast<bool>(out);
        },
        error);
}

int exportToFile(LexiconReader& reader, const std::string& file, const std::string& output)
{
    PendingFile pending(output);
    std::ofstream out(pending.path(), std::ios::binary);
    std::string error;
    const LexiconReader::Status status = writeEntries(reader, out, error);
    if (status != LexiconReader::Status::Ok) {
        complain(file + ": " + error);
        return exitCode(status);
    }
    out.close();
    if (!out) {
        complain("cannot write " + output + ": " + std::strerror(errno));
        return Failed;
    }
    if (!pending.commit(error)) {
        complain(error);
        return Failed;
    }
    return Done;
}

} // namespace

int exportTsv(const std::string& file, const std::string& output)
{
    LexiconReader reader;
    if (const auto status = openLexicon(reader, file); status != LexiconReader::Status::Ok)
        return exitCode(status);
    if (!output.empty() && output != "-")
        return exportToFile(reader, file, output);
    std::string error;
    const LexiconReader::Status status = writeEntries(reader, std::cout, error);
    if (status != LexiconReader::Status::Ok)
        complain(file + ": " + error);
    return finishOutput(exitCode(status));
}

} // namespace teskel::commands
