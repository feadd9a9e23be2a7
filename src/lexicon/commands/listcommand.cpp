// SPDX-License-Identifier: MIT
#include "lexicon/commands/commands.h"
#include "lexicon/commands/commandsupport.h"
#include "lexicon/text/utf8.h"

#include <iostream>
#include <limits>

namespace teskel::commands
{

int list(const ListOptions& options)
{
    LexiconReader reader;
    if (const auto status = openLexicon(reader, options.file); status != LexiconReader::Status::Ok)
        return exitCode(status);
    uint64_t left = options.count.value_or(std::numeric_limits<uint64_t>::max());
    std::string error;
    const auto print = [&left](std::string_view headword, std::string_view) {
        if (left == 0)
            return false;
        std::cout << utf8::fromLatin1(headword) << '\n';
        return --left > 0 && std::cout;
    };
    const LexiconReader::Status status = reader.visitFrom(options.from, print, error);
    if (status != LexiconReader::Status::Ok)
        complain(options.file + ": " + error);
    return finishOutput(exitCode(status));
}

} // namespace teskel::commands
