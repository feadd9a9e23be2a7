// SPDX-License-Identifier: MIT
#include "base/standardstreams.h"
#include "lexicon/commands/commands.h"
#include "lexicon/commands/commandsupport.h"
#include "lexicon/commands/enginemessages.h"

#include <csignal>
#include <iostream>
#include <utility>
#include <vector>

#include <CLI/CLI.hpp>

namespace
{

using namespace teskel;

int run(int argc, char** argv)
{
    CLI::App app("Makes dictionary files for the Teskel reader, and looks into them.",
                 "teskel-lexicon");
    app.require_subcommand(1);
    app.set_version_flag("--version", "teskel-lexicon " TESKEL_VERSION);
    std::vector<std::pair<const CLI::App*, commands::Action>> actions;
    for (const commands::Command& command : commands::all()) {
        CLI::App* options = app.add_subcommand(command.name, command.summary);
        actions.emplace_back(options, command.declare(*options));
    }
    try {
        app.parse(argc, argv);
    } catch (const CLI::ParseError& error) {
        // Help and version are no errors.
        return commands::finishOutput(app.exit(error, std::cout, std::cerr) == 0 ? commands::Done
                                                                                 : commands::Usage);
    }
    for (const auto& [options, action] : actions) {
        if (options->parsed())
            return action();
    }
    return commands::Usage;
}

} // namespace

int main(int argc, char** argv)
{
    openStandardStreams();
    std::ios::sync_with_stdio(false);
    commands::enginemessages::keepBack();
    // A file that may not grow any more is a write that failed, with its sentence.
    (void)std::signal(SIGXFSZ, SIG_IGN);
    try {
        return run(argc, argv);
    } catch (const std::bad_alloc&) {
        std::cerr << "teskel-lexicon: out of memory\n";
    } catch (const std::exception& error) {
        std::cerr << "teskel-lexicon: " << error.what() << '\n';
    }
    return commands::Failed;
}
