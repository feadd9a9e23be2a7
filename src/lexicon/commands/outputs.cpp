// SPDX-License-Identifier: MIT
#include "lexicon/commands/outputs.h"

#include "lexicon/commands/commandsupport.h"
#include "lexicon/file/outputtarget.h"
#include "lexicon/file/samefile.h"

#include <cerrno>
#include <climits>
#include <cstring>
#include <filesystem>

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

/// Whether a file of that name can be made.
bool canBeMade(const std::string& output, std::string& reason)
{
    std::string real;
    if (output.empty()) {
        reason = "the name is empty";
        return false;
    }
    if (!outputtarget::follow(output, real, reason))
        return false;
    const std::filesystem::path path(real);
    const std::string name = path.filename().string();
    const std::string directory = path.has_parent_path() ? path.parent_path().string() : ".";
    struct stat status = {};
    int error = 0;
    if (::stat(directory.c_str(), &status) != 0)
        error = errno;
    else if (!S_ISDIR(status.st_mode))
        error = ENOTDIR;
    else if (name.empty())
        error = EISDIR;
    else if (name.size() > NAME_MAX)
        error = ENAMETOOLONG;
    if (error != 0)
        reason = std::strerror(error);
    return error == 0;
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
    std::string real;
    std::string otherReal;
    std::string reason;
    const bool isLinkOfIt = outputtarget::follow(output, real, reason) &&
                            outputtarget::follow(other, otherReal, reason) &&
                            isSameFile(real, otherReal); // be there a file yet or not
    if (!isLinkOfIt && !isSameFile(output, other))
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
    if (!outputtarget::isReplaceable(output, reason) || !canBeMade(output, reason)) {
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
