// SPDX-License-Identifier: MIT
#include "lexicon/commands/commands.h"
#include "lexicon/commands/commandsupport.h"
#include "lexicon/commands/jsonline.h"
#include "lexicon/commands/outputs.h"
#include "lexicon/file/lexiconfacts.h"

#include <iostream>
#include <memory>

#include <CLI/CLI.hpp>

using namespace Qt::StringLiterals;

namespace teskel::commands
{

namespace
{

const char* formOf(const LexiconFacts& facts)
{
    return facts.hasLetterReferences ? "Latin-1 and letter references" : "plain Latin-1";
}

void printText(const std::string& file, const LexiconFacts& facts)
{
    std::cout << "file:          " << file << '\n'
              << "name:          " << facts.name << '\n'
              << "description:   " << facts.description << '\n'
              << "characters:    " << formOf(facts) << '\n'
              << "headwords:     " << facts.headwords << '\n'
              << "word records:  " << facts.records << '\n'
              << "methods:       " << facts.methods << '\n'
              << "index bytes:   " << facts.indexBytes << '\n'
              << "packed bytes:  " << facts.packedBytes << '\n'
              << "text bytes:    " << facts.textBytes << '\n'
              << "file bytes:    " << facts.fileBytes << '\n';
}

void printJson(const std::string& file, const LexiconFacts& facts)
{
    const auto number = [](uint64_t value) { return static_cast<qint64>(value); };
    printJsonLine({{u"file"_s, jsonText(file)},
                   {u"name"_s, jsonText(facts.name)},
                   {u"description"_s, jsonText(facts.description)},
                   {u"letterReferences"_s, facts.hasLetterReferences},
                   {u"headwords"_s, number(facts.headwords)},
                   {u"wordRecords"_s, number(facts.records)},
                   {u"methods"_s, jsonText(facts.methods)},
                   {u"indexBytes"_s, number(facts.indexBytes)},
                   {u"packedBytes"_s, number(facts.packedBytes)},
                   {u"textBytes"_s, number(facts.textBytes)},
                   {u"fileBytes"_s, number(facts.fileBytes)}});
}

int run(const std::string& file, bool json)
{
    if (!isOutputApart(file, "lexicon " + file))
        return Usage;
    const FileStates states({file});
    LexiconReader reader;
    if (const auto status = openLexicon(reader, file, states); status != LexiconReader::Status::Ok)
        return exitCode(status);
    LexiconFacts facts;
    std::string error;
    const LexiconReader::Status status = facts.gather(reader, file, error);
    if (status != LexiconReader::Status::Ok)
        return finishReading(status, file, error, states);
    if (json)
        printJson(file, facts);
    else
        printText(file, facts);
    return finishOutput(Done, states);
}

} // namespace

Action info(CLI::App& options)
{
    struct Request {
        std::string file;
        bool json = false;
    };
    const auto request = std::make_shared<Request>();
    options.add_option("FILE", request->file)->required();
    options.add_flag("--json", request->json, "Print a JSON object on one line");
    return [request] { return run(request->file, request->json); };
}

} // namespace teskel::commands
