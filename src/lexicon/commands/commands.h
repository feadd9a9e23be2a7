// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <span>

namespace CLI
{
class App;
}

/// The commands of the program. Each prints its data on the standard output and everything else on
/// the standard error.
namespace teskel::commands
{

/// What a command does once the command line was read. Returns the program's exit code.
using Action = std::function<int()>;

/// A command of the program.
struct Command {
    const char* name;
    const char* summary; ///< one line of the program's help
    /// Adds the command's options to `options`, and returns the action that uses them.
    Action (*declare)(CLI::App& options);
};

/// All commands, in the order of the help.
std::span<const Command> all();

Action build(CLI::App& options);
Action info(CLI::App& options);
Action find(CLI::App& options);
Action list(CLI::App& options);
Action exportLexicon(CLI::App& options);
Action verify(CLI::App& options);
Action diff(CLI::App& options);
Action repair(CLI::App& options);

} // namespace teskel::commands
