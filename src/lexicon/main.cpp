// SPDX-License-Identifier: MIT
#include "lexicon/commands/commands.h"
#include "lexicon/commands/commandsupport.h"

#include <iostream>
#include <limits>

#include <CLI/CLI.hpp>

namespace
{

using namespace teskel;

/// What the command line asks for, filled in while it is parsed.
struct Request {
    BuildOptions build;
    bool quiet = false;
    commands::FindOptions find;
    commands::ListOptions list;
    std::string file;
    std::string output;
    bool json = false;
    std::vector<std::string> files;
};

void addBuild(CLI::App& app, Request& request)
{
    CLI::App* build = app.add_subcommand("build", "Build a lexicon from a dictionary source");
    build
        ->add_option("SOURCE", request.build.source,
                     "A dictd .index with its .dict.dz or .dict beside it, a UTF-8 .tsv, or - for "
                     "TSV on the standard input")
        ->required();
    build
        ->add_option("-o,--output", request.build.output,
                     "The lexicon to write, such as Eng2Ger.PDB")
        ->required();
    build->add_option("--description", request.build.description,
                      "Text shown when the lexicon is opened (default: the source's own)");
    build
        ->add_option("--method", request.build.method,
                     "ARJ method: 1 packs best, 4 unpacks with least work")
        ->check(CLI::Range(1, 4))
        ->capture_default_str();
    build->add_option("--record-size", request.build.recordSize, "Unpacked bytes of a word record")
        ->check(CLI::Range(BuildOptions::smallestRecordSize, limits::recordBytes))
        ->capture_default_str();
    build->add_flag("--no-numbers{false}", request.build.numbers,
                    "Do not number the senses of words that occur several times");
    build->add_flag("-q,--quiet", request.quiet, "Print no summary");
}

void addReaders(CLI::App& app, Request& request)
{
    CLI::App* info = app.add_subcommand("info", "Print the figures of a lexicon");
    info->add_option("FILE", request.file)->required();
    info->add_flag("--json", request.json, "Print a JSON object");

    CLI::App* find = app.add_subcommand("find", "Print headwords and articles");
    find->add_option("FILE", request.find.file)->required();
    find->add_option("WORD", request.find.words,
                     "Words to look up; - reads them from the standard input, one a line")
        ->required();
    find->add_flag("--prefix", request.find.prefix, "Find all headwords that begin with a word");
    find->add_flag("--json", request.find.json, "Print a JSON array with an object for each word");

    CLI::App* list = app.add_subcommand("list", "Print headwords, one a line");
    list->add_option("FILE", request.list.file)->required();
    list->add_option("--from", request.list.from,
                     "Begin with the first headword not before this word");
    list->add_option("--count", request.list.count, "Print at most so many")
        ->check(CLI::NonNegativeNumber);

    CLI::App* exporting = app.add_subcommand("export", "Print all entries as TSV");
    exporting->add_option("FILE", request.file)->required();
    exporting->add_option("-o,--output", request.output,
                          "File to write instead of the standard output");

    CLI::App* verify =
        app.add_subcommand("verify", "Check lexicons against every rule of the format");
    verify->add_option("FILE", request.files)->required();
}

int run(const CLI::App& app, const Request& request)
{
    if (app.got_subcommand("build"))
        return commands::build(request.build, request.quiet);
    if (app.got_subcommand("info"))
        return commands::info(request.file, request.json);
    if (app.got_subcommand("find"))
        return commands::find(request.find);
    if (app.got_subcommand("list"))
        return commands::list(request.list);
    if (app.got_subcommand("export"))
        return commands::exportTsv(request.file, request.output);
    return commands::verify(request.files);
}

} // namespace

int main(int argc, char** argv)
{
    std::ios::sync_with_stdio(false);
    CLI::App app("Makes dictionary files for the Teskel reader, and looks into them.",
                 "teskel-lexicon");
    app.require_subcommand(1);
    app.set_version_flag("--version", "teskel-lexicon " TESKEL_VERSION);
    Request request;
    addBuild(app, request);
    addReaders(app, request);
    try {
        app.parse(argc, argv);
    } catch (const CLI::ParseError& error) {
        // Help and version are no errors.
        return commands::finishOutput(app.exit(error, std::cout, std::cerr) == 0 ? commands::Done
                                                                                 : commands::Usage);
    }
    try {
        return run(app, request);
    } catch (const std::bad_alloc&) {
        std::cerr << "teskel-lexicon: out of memory\n";
        return commands::Failed;
    }
}
