// SPDX-License-Identifier: MIT
#include "lexicon/build/lexiconbuilder.h"
#include "lexicon/build/sourcetable.h"
#include "lexicon/commands/commands.h"
#include "lexicon/commands/commandsupport.h"
#include "lexicon/sources/siblingfile.h"

#include <algorithm>
#include <iostream>
#include <memory>

#include <CLI/CLI.hpp>

namespace teskel::commands
{

namespace
{

bool prepare(LexiconBuilder& builder, const BuildOptions& options, bool quiet)
{
    return runBuild(builder, options.strict, quiet,
                    [&builder](std::string& error) { return builder.prepare(error); });
}

bool commit(LexiconBuilder& builder, bool quiet)
{
    std::string error;
    if (!builder.commit(error)) {
        complain(error);
        return false;
    }
    if (!quiet)
        builder.report().print(std::cerr);
    return true;
}

BuildOptions reversed(BuildOptions options, const std::string& output)
{
    options.output = output;
    options.reversed = true;
    options.numbers = false; // words one below the other, not senses
    return options;
}

/// Whether no file is written that is read as well, or written twice.
bool areApart(const BuildOptions& options, const std::string& reverse)
{
    std::vector<std::string> outputs = {options.output};
    if (!reverse.empty())
        outputs.push_back(reverse);
    for (const std::string& output : outputs) {
        for (const std::string& source : options.sources) {
            const std::string path = source == "-" ? "/dev/stdin" : source;
            for (const std::string& file : siblingfile::family(path)) {
                if (!isApart(output, "source", file))
                    return false;
            }
        }
    }
    return reverse.empty() || isApart(reverse, "output", options.output);
}

/// An empty `reverse` is no file.
int run(const BuildOptions& options, const std::string& reverse, bool quiet)
{
    const auto& sources = options.sources;
    if (!reverse.empty() && std::find(sources.begin(), sources.end(), "-") != sources.end()) {
        complain("--reverse reads its sources twice, which the standard input does not allow");
        return Usage;
    }
    if (!isFileName(options.output) || !isFileName(reverse) || !areApart(options, reverse))
        return Usage;
    std::ostream* progress = quiet ? nullptr : terminal();
    LexiconBuilder builder(options, progress);
    LexiconBuilder opposite(reversed(options, reverse), progress);
    // Neither file gets its name when the other one fails.
    if (!prepare(builder, options, quiet) ||
        (!reverse.empty() && !prepare(opposite, options, quiet)))
        return Failed;
    const bool isWritten = commit(builder, quiet) && (reverse.empty() || commit(opposite, quiet));
    return isWritten ? Done : Failed;
}

} // namespace

Action build(CLI::App& options)
{
    struct Request : BuildOptions {
        bool plainLatin = false;
        bool quiet = false;
        std::string reverse;
    };
    const auto request = std::make_shared<Request>();
    options.add_option("SOURCE", request->sources, sourceHelp())->required();
    options
        .add_option("--from", request->sourceKind,
                    "The kind of the sources (default: as each of them looks)")
        ->check(CLI::IsMember(sourceKinds()));
    options.add_option("-o,--output", request->output, "The lexicon to write, such as Eng2Ger.PDB")
        ->required();
    options.add_option("--reverse", request->reverse,
                       "Also write the opposite direction, made from the translations in the "
                       "articles, such as Ger2Eng.PDB");
    options.add_option("--description", request->description,
                       "Text shown when the lexicon is opened (default: the source's own)");
    options
        .add_option("--method", request->method,
                    "ARJ method: 1 packs best, 4 unpacks with least work")
        ->check(CLI::Range(1, 4))
        ->capture_default_str();
    options.add_option("--record-size", request->recordSize, "Unpacked bytes of a word record")
        ->check(CLI::Range(BuildOptions::smallestRecordSize, BuildOptions::largestRecordSize))
        ->capture_default_str();
    options.add_flag("--no-numbers{false}", request->numbers,
                     "Do not number the senses of words that occur several times");
    options.add_flag("--plain-latin", request->plainLatin,
                     "Write entities, other letters and \"?\" in place of letter references, for "
                     "readers that do not know them; pronunciations are left out");
    options.add_flag("--no-pronunciation{false}", request->text.pronunciations,
                     "Leave pronunciations out");
    options.add_flag("--force", request->force, "Build even when many headwords are lost");
    options.add_flag("--strict", request->strict, "Take warnings for errors: write nothing");
    options.add_flag("-q,--quiet", request->quiet, "Print errors alone: no warnings, no summary");
    return [request] {
        request->text.form = request->plainLatin ? LatinForm::Plain : LatinForm::LetterReferences;
        return run(*request, request->reverse, request->quiet);
    };
}

} // namespace teskel::commands
