// SPDX-License-Identifier: MIT
#pragma once

#include <QStringList>

namespace teskel::bench
{

/// Takes every `--lexicon=PATH` out of a command line, before Google Benchmark reads the rest.
/// Ends the program with a message when there is none.
[[nodiscard]] QStringList takeLexicons(int& argc, char** argv);

/// Reads the rest of the command line and runs what is registered: the program's exit code.
int runBenchmarks(int& argc, char** argv);

} // namespace teskel::bench
