// SPDX-License-Identifier: MIT
#include "lexicon/commands/commands.h"
#include "lexicon/commands/commandsupport.h"

#include <iostream>

namespace teskel::commands
{

int build(const BuildOptions& options, bool quiet)
{
    LexiconBuilder builder(options);
    std::string error;
    if (!builder.build(error)) {
        complain(error);
        return Failed;
    }
    if (!quiet)
        builder.report().print(std::cerr);
    return Done;
}

} // namespace teskel::commands
