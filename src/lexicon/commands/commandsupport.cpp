// SPDX-License-Identifier: MIT
#include "lexicon/commands/commandsupport.h"

#include "lexicon/build/lexiconbuilder.h"
#include "lexicon/commands/enginemessages.h"

#include <cstdlib>
#include <cstring>
#include <iostream>

#include <CLI/CLI.hpp>
#include <unistd.h>

namespace teskel::commands
{

void complain(const std::string& sentence)
{
    std::cerr << "teskel-lexicon: " << sentence << '\n';
}

int exitCode(LexiconReader::Status status)
{
    switch (status) {
    case LexiconReader::Status::Ok:
        return Done;
    case LexiconReader::Status::Invalid:
        return Negative;
    default:
        return Failed;
    }
}

LexiconReader::Status openLexicon(LexiconReader& reader, const std::string& file,
                                  const FileStates& read)
{
    std::string error;
    const LexiconReader::Status status = reader.open(file, error);
    if (std::string change; !read.areKept(change)) {
        complain(change);
        return LexiconReader::Status::Unreadable;
    }
    const std::string reason =
        status == LexiconReader::Status::Invalid ? enginemessages::reason() : std::string();
    if (status != LexiconReader::Status::Ok)
        complain(reason.empty() ? error : error + ": " + reason);
    return status;
}

CLI::Validator wholeNumber()
{
    const auto check = [](const std::string& text) {
        const bool isNumber =
            !text.empty() && text.find_first_not_of("0123456789") == std::string::npos;
        return isNumber ? std::string() : text + " is no whole number from 0 on";
    };
    return {check, "NUMBER"};
}

std::ostream* terminal()
{
    const char* kind = std::getenv("TERM");
    const bool isWritable = kind && std::strcmp(kind, "dumb") != 0;
    return isWritable && ::isatty(STDERR_FILENO) != 0 ? &std::cerr : nullptr;
}

bool runBuild(LexiconBuilder& builder, bool isStrict, bool quiet,
              const std::function<bool(std::string& error)>& build)
{
    std::string error;
    const bool isBuilt = build(error);
    builder.report().progress->end();
    builder.report().diagnostics.print(std::cerr, {isStrict, quiet});
    if (!isBuilt)
        complain(error);
    return isBuilt;
}

int finishFiles(LexiconReader::Status status, const std::string& file, std::string& error,
                const FileStates& read, const std::function<bool(std::string& error)>& commit)
{
    std::string change;
    if (!read.areKept(change)) {
        complain(change);
        return Failed;
    }
    if (status != LexiconReader::Status::Ok) {
        complain(file + ": " + error);
        return exitCode(status);
    }
    if (!commit(error)) {
        complain(error);
        return Failed;
    }
    return Done;
}

int finishReading(LexiconReader::Status status, const std::string& file, const std::string& error,
                  const FileStates& read)
{
    std::string change;
    if (status != LexiconReader::Status::Ok && read.areKept(change))
        complain(file + ": " + error);
    return finishOutput(exitCode(status), read);
}

int finishOutput(int code, const FileStates& read)
{
    std::string change;
    std::cout.flush();
    if (std::cout && read.areKept(change))
        return code;
    complain(std::cout ? change : "cannot write to the standard output");
    return Failed;
}

} // namespace teskel::commands
