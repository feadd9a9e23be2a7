// SPDX-License-Identifier: MIT
#include "lexicon/commands/commandsupport.h"

#include "lexicon/build/lexiconbuilder.h"

#include <cstdlib>
#include <cstring>
#include <iostream>

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

LexiconReader::Status openLexicon(LexiconReader& reader, const std::string& file)
{
    std::string error;
    const LexiconReader::Status status = reader.open(file, error);
    if (status != LexiconReader::Status::Ok)
        complain(error);
    return status;
}

std::ostream* terminal()
{
    const char* kind = std::getenv("TERM");
    const bool isWritable = kind && std::strcmp(kind, "dumb") != 0;
    return isWritable && ::isatty(STDERR_FILENO) != 0 ? &std::cerr : nullptr;
}

int runBuild(const BuildOptions& options, bool quiet,
             const std::function<bool(LexiconBuilder& builder, std::string& error)>& build)
{
    LexiconBuilder builder(options, quiet ? nullptr : terminal());
    std::string error;
    const bool isBuilt = build(builder, error);
    builder.report().progress->end();
    builder.report().diagnostics.print(std::cerr, {options.strict, quiet});
    if (!isBuilt) {
        complain(error);
        return Failed;
    }
    if (!quiet)
        builder.report().print(std::cerr);
    return Done;
}

int finishFiles(LexiconReader::Status status, const std::string& file, std::string& error,
                const std::function<bool(std::string& error)>& commit)
{
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

int finishOutput(int code)
{
    std::cout.flush();
    if (std::cout)
        return code;
    complain("cannot write to the standard output");
    return Failed;
}

} // namespace teskel::commands
