// SPDX-License-Identifier: MIT
#include "bench/support/arguments.h"

#include <QFile>

#include <cstdlib>
#include <iostream>
#include <string_view>

#include <benchmark/benchmark.h>

namespace teskel::bench
{

QStringList takeLexicons(int& argc, char** argv)
{
    constexpr std::string_view option = "--lexicon=";
    QStringList paths;
    int kept = 1;
    for (int index = 1; index < argc; ++index) {
        const std::string_view argument = argv[index];
        if (argument.substr(0, option.size()) == option)
            paths.append(QFile::decodeName(argv[index] + option.size()));
        else
            argv[kept++] = argv[index];
    }
    argc = kept;
    argv[argc] = nullptr;
    if (paths.isEmpty()) {
        std::cerr << "usage: " << argv[0] << " --lexicon=FILE... [options of Google Benchmark]\n";
        std::exit(2);
    }
    return paths;
}

int runBenchmarks(int& argc, char** argv)
{
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv))
        return 2;
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}

} // namespace teskel::bench
