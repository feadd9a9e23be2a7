// SPDX-License-Identifier: MIT
#include "lexicon/commands/outputs.h"

#include "lexicon/commands/commandsupport.h"
#include "lexicon/file/outputtarget.h"
#include "lexicon/file/samefile.h"

#include <sys/stat.h>
#include <unistd.h>

namespace teskel::commands
{

namespace
{

void refuse(const std::string& output, const std::string& reason)
{
    complain("cannot write " + output + ": " + reason);
}

} // namespace

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
    refuse(output, "it is the same file as the " + role + ' ' + other);
    return false;
}

bool isOutputApart(const std::string& other, const std::string& name)
{
    struct stat output = {};
    struct stat file = {};
    if (::fstat(STDOUT_FILENO, &output) != 0 || !S_ISREG(output.st_mode) ||
        ::stat(other.c_str(), &file) != 0 || output.st_dev != file.st_dev ||
        output.st_ino != file.st_ino)
        return true;
    refuse("to the standard output", "it is the same file as the " + name);
    return false;
}

int checkTarget(const std::string& output, Writes kind, bool isForced)
{
    std::string reason;
    if (!outputtarget::isReplaceable(output, reason)) {
        refuse(output, reason);
        return Failed;
    }
    const bool isOfItsKind = kind == Writes::Lexicon ? outputtarget::isLexicon(output)
                                                     : !outputtarget::mayBeLexicon(output);
    if (isOfItsKind || isForced || !outputtarget::holdsAnything(output))
        return Done;
    refuse(output, std::string("what is there is ") +
                       (kind == Writes::Lexicon ? "no lexicon" : "a lexicon") +
                       "; --force replaces it all the same");
    return Usage;
}

} // namespace teskel::commands
