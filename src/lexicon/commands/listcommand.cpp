// SPDX-License-Identifier: MIT
#include "lexicon/commands/commands.h"
#include "lexicon/commands/commandsupport.h"
#include "lexicon/commands/jsonline.h"
#include "lexicon/commands/outputs.h"
#include "lexicon/text/utf8.h"

#include <iostream>
#include <limits>
#include <memory>
#include <optional>

#include <CLI/CLI.hpp>

using namespace Qt::StringLiterals;

namespace teskel::commands
{

namespace
{

struct ListOptions {
    std::string file;
    std::string from;
    std::optional<uint64_t> count;
    bool json = false;
};

void print(const std::string& headword, bool json)
{
    if (json)
        printJsonLine({{u"headword"_s, jsonText(headword)}});
    else
        std::cout << headword << '\n';
}

int run(const ListOptions& options)
{
    if (!isOutputApart(options.file, "lexicon " + options.file))
        return Usage;
    const FileStates states({options.file});
    LexiconReader reader;
    if (const auto status = openLexicon(reader, options.file, states);
        status != LexiconReader::Status::Ok)
        return exitCode(status);
    uint64_t left = options.count.value_or(std::numeric_limits<uint64_t>::max());
    std::string error;
    const auto visit = [&left, &options](std::string_view headword, std::string_view) {
        if (left == 0)
            return false;
        print(utf8::fromLatin1(headword), options.json);
        return --left > 0 && std::cout;
    };
    const LexiconReader::Status status = reader.visitFrom(options.from, visit, error);
    return finishReading(status, options.file, error, states);
}

} // namespace

Action list(CLI::App& options)
{
    const auto request = std::make_shared<ListOptions>();
    options.add_option("FILE", request->file)->required();
    options.add_option("--from", request->from,
                       "Begin with the first headword not before this word");
    options.add_option("--count", request->count, "Print at most so many")->check(wholeNumber());
    options.add_flag("--json", request->json, "Print a JSON object for each headword, one a line");
    return [request] { return run(*request); };
}

} // namespace teskel::commands
