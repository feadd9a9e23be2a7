// SPDX-License-Identifier: MIT
#pragma once

#include "lexicon/build/lexiconbuilder.h"

#include <optional>
#include <string>
#include <vector>

/// The commands of the program. Each prints its data on the standard output and everything else on
/// the standard error, and returns the program's exit code.
namespace teskel::commands
{

/// How the program ends.
enum ExitCode {
    Done = 0,     ///< done, found, valid
    Negative = 1, ///< not found, invalid
    Usage = 2,    ///< the command line is wrong
    Failed = 3,   ///< input or output failed
};

struct FindOptions {
    std::string file;
    std::vector<std::string> words; ///< "-" reads words from the standard input, one a line
    bool prefix = false;
    bool json = false;
};

struct ListOptions {
    std::string file;
    std::string from;
    std::optional<uint64_t> count;
};

int build(const BuildOptions& options, bool quiet);
int find(const FindOptions& options);
int list(const ListOptions& options);
/// An empty `output` is the standard output.
int exportTsv(const std::string& file, const std::string& output);
int info(const std::string& file, bool json);
int verify(const std::vector<std::string>& files);

} // namespace teskel::commands
