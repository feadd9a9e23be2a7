// SPDX-License-Identifier: MIT
#include "lexicon/build/lexiconbuilder.h"
#include "lexicon/commands/commands.h"
#include "lexicon/commands/commandsupport.h"
#include "lexicon/commands/outputs.h"
#include "lexicon/file/leftovers.h"
#include "lexicon/repair/salvagesource.h"

#include <iostream>
#include <memory>

#include <CLI/CLI.hpp>

namespace teskel::commands
{

namespace
{

struct RepairOptions {
    std::string file;
    std::string output;
    bool force = false;
    bool quiet = false;
};

int run(const RepairOptions& options)
{
    if (!isFileName(options.output) || !isApart(options.output, "lexicon", options.file))
        return Usage;
    if (const int code = checkTarget(options.output, Writes::Lexicon, options.force); code != Done)
        return code;
    const FileStates states({options.file});
    leftovers::remove(options.output, states);
    Salvage salvage;
    std::string error;
    if (!salvage.read(options.file, error)) {
        complain(error);
        return Failed;
    }
    if (!salvage.entryError().empty()) {
        complain(salvage.entryError());
        return Failed;
    }
    if (!states.areKept(error)) {
        complain(error);
        return Failed;
    }
    for (const std::string& loss : salvage.losses())
        std::cerr << options.file << ": " << loss << '\n';
    if (salvage.entryCount() == 0) {
        complain(options.file + " holds no entry that can be read");
        return Failed;
    }
    SalvageSource source(salvage);
    BuildOptions build;
    build.output = options.output;
    build.numbers = false;
    build.force = true;
    build.text.form = source.form();
    LexiconBuilder builder(build, options.quiet ? nullptr : terminal());
    const auto buildFromSalvage = [&](std::string& why) { return builder.build(source, why); };
    if (!runBuild(builder, build.strict, options.quiet, buildFromSalvage))
        return Failed;
    if (!options.quiet)
        builder.report().print(std::cerr);
    return salvage.losses().empty() ? Done : Negative;
}

} // namespace

Action repair(CLI::App& options)
{
    const auto request = std::make_shared<RepairOptions>();
    options.add_option("FILE", request->file)->required();
    options.add_option("-o,--output", request->output, "The sound lexicon to write")->required();
    options.add_flag("--force", request->force, "Replace a file that is no lexicon");
    options.add_flag("-q,--quiet", request->quiet, "Print only what was lost, and errors");
    return [request] { return run(*request); };
}

} // namespace teskel::commands
