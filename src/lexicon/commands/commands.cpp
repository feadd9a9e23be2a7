// SPDX-License-Identifier: MIT
#include "lexicon/commands/commands.h"

namespace teskel::commands
{

namespace
{

constexpr Command table[] = {
    {"build", "Build a lexicon from a dictionary source", build},
    {"info", "Print the figures of a lexicon", info},
    {"find", "Print headwords and articles", find},
    {"list", "Print headwords, one a line", list},
    {"export", "Print all entries as TSV, or write them for StarDict or dictd", exportLexicon},
    {"verify", "Check lexicons against every rule of the format", verify},
    {"diff", "Print the headwords in which two lexicons differ", diff},
    {"repair", "Make a sound lexicon of what can be read of a damaged one", repair},
};

} // namespace

std::span<const Command> all()
{
    return table;
}

} // namespace teskel::commands
