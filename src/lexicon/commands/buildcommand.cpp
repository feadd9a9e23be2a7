// SPDX-License-Identifier: MIT
#include "lexicon/build/lexiconbuilder.h"
#include "lexicon/build/sourcetable.h"
#include "lexicon/commands/commands.h"
#include "lexicon/commands/commandsupport.h"
#include "lexicon/commands/outputs.h"
#include "lexicon/file/leftovers.h"
#include "lexicon/file/samefile.h"
#include "lexicon/sources/siblingfile.h"

#include <algorithm>
#include <iostream>
#include <memory>

#include <CLI/CLI.hpp>
#include <unistd.h>

namespace teskel::commands
{

namespace
{

std::string pathOf(const std::string& source)
{
    return source == "-" ? "/dev/stdin" : source;
}

/// All that a build reads, as it is now.
FileStates statesOf(const std::vector<std::string>& sources)
{
    FileStates states;
    for (const std::string& source : sources) {
        for (const std::string& file : siblingfile::family(pathOf(source)))
            states.add(file);
    }
    return states;
}

/// What was read of sources that changed meanwhile does not belong together, whatever is wrong
/// else.
bool prepare(LexiconBuilder& builder, const BuildOptions& options, const FileStates& sources,
             bool quiet)
{
    return runBuild(builder, options.strict, quiet, [&](std::string& error) {
        const bool isPrepared = builder.prepare(error);
        return sources.areKept(error) && isPrepared;
    });
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

CLI::Validator encodingName()
{
    const auto check = [](const std::string& name) {
        return TextDecoder::isKnown(name) ? std::string() : name + " is no encoding that is known";
    };
    return {check, "ENCODING"};
}

/// Whether an output is not a file that belongs to a source, nor would become one.
bool isApartFrom(const std::string& output, const std::string& file, const std::string& source)
{
    if (::access(file.c_str(), F_OK) == 0)
        return isApart(output, "source", file);
    if (!isSameFile(output, file))
        return true;
    complain("cannot write " + output + ": it would be read as a part of the source " + source);
    return false;
}

/// Whether no file is written that is read as well, or written twice.
bool areApart(const BuildOptions& options, const std::string& reverse)
{
    std::vector<std::string> outputs = {options.output};
    if (!reverse.empty())
        outputs.push_back(reverse);
    for (const std::string& output : outputs) {
        for (const std::string& source : options.sources) {
            for (const std::string& file : siblingfile::family(pathOf(source))) {
                if (!isApartFrom(output, file, source))
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
    int code = checkTarget(options.output, Writes::Lexicon, options.force);
    if (code == Done && !reverse.empty())
        code = checkTarget(reverse, Writes::Lexicon, options.force);
    if (code != Done)
        return code;
    const FileStates states = statesOf(sources);
    leftovers::remove(options.output, states);
    if (!reverse.empty())
        leftovers::remove(reverse, states);
    std::ostream* progress = quiet ? nullptr : terminal();
    LexiconBuilder builder(options, progress);
    LexiconBuilder opposite(reversed(options, reverse), progress);
    // Neither file gets its name when the other one fails.
    if (!prepare(builder, options, states, quiet) ||
        (!reverse.empty() && !prepare(opposite, options, states, quiet)))
        return Failed;
    if (!commit(builder, quiet))
        return Failed;
    // Two names that had no file may be one to the file system, as in small and large letters.
    const bool isWritten =
        reverse.empty() || (isApart(reverse, "output", options.output) && commit(opposite, quiet));
    return isWritten ? Done : Failed;
}

} // namespace

Action build(CLI::App& options)
{
    struct Request : BuildOptions {
        bool plainLatin = false;
        bool quiet = false;
        std::string reverse;
        std::string invalid = "error";
    };
    const auto request = std::make_shared<Request>();
    options.add_option("SOURCE", request->sources, sourceHelp())->required();
    options
        .add_option("--from", request->sourceKind,
                    "The kind of the sources (default: as each of them looks)")
        ->check(CLI::IsMember(sourceKinds()));
    options.add_option("-o,--output", request->output, "The lexicon to write, such as Eng2Ger.PDB")
        ->required();
    options
        .add_option("--encoding", request->encoding.name,
                    "The encoding of the sources, such as latin1, windows-1252 or utf-16 (default: "
                    "UTF-8)")
        ->check(encodingName());
    options
        .add_option("--invalid-utf8", request->invalid,
                    "What becomes of bytes that are no text: error, or replace by the sign for "
                    "what is unknown")
        ->check(CLI::IsMember({"error", "replace"}))
        ->capture_default_str();
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
    options.add_flag("--force", request->force,
                     "Build even when many headwords are lost, and replace a file that is no "
                     "lexicon");
    options.add_flag("--strict", request->strict, "Take warnings for errors: write nothing");
    options.add_flag("-q,--quiet", request->quiet, "Print errors alone: no warnings, no summary");
    return [request] {
        if (TextDecoder::isUtf8(request->encoding.name))
            request->encoding.name.clear();
        request->encoding.replacesInvalid = request->invalid == "replace";
        request->text.form = request->plainLatin ? LatinForm::Plain : LatinForm::LetterReferences;
        return run(*request, request->reverse, request->quiet);
    };
}

} // namespace teskel::commands
