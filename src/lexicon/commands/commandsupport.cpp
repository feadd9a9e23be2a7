// SPDX-License-Identifier: MIT
#include "lexicon/commands/commandsupport.h"

#include "lexicon/build/lexiconbuilder.h"
#include "lexicon/file/samefile.h"

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

LexiconReader::Status openLexicon(LexiconReader& reader, const std::string& file)
{
    std::string error;
    const LexiconReader::Status status = reader.open(file, error);
    if (status != LexiconReader::Status::Ok)
        complain(error);
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

bool isFileName(const std::string& output)
{
    if (output != "-")
        return true;
    complain("a lexicon cannot be written to the standard output; name a file");
    return false;
}

bool isApart(const std::string& output, const std::string& role, const std::string& other)
{
    if (!isSameFile(output, other))
        return true;
    complain("cannot write " + output + ": it is the same file as the " + role + ' ' + other);
    return false;
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
