// SPDX-License-Identifier: MIT
#include "lexicon/commands/commands.h"
#include "lexicon/commands/commandsupport.h"
#include "lexicon/verify/lexiconverifier.h"

#include <algorithm>
#include <iostream>
#include <memory>

#include <CLI/CLI.hpp>

namespace teskel::commands
{

namespace
{

int verifyOne(const std::string& file)
{
    LexiconVerifier verifier;
    std::string error;
    if (!verifier.run(file, error)) {
        complain(error);
        return Failed;
    }
    for (const std::string& finding : verifier.findings())
        std::cout << file << ": " << finding << '\n';
    if (!verifier.findings().empty())
        return Negative;
    std::cout << file << ": valid, " << verifier.headwords() << " headwords in "
              << verifier.wordRecords() << " word records\n";
    return Done;
}

int run(const std::vector<std::string>& files)
{
    int code = Done;
    for (const std::string& file : files)
        code = std::max(code, verifyOne(file));
    return finishOutput(code);
}

} // namespace

Action verify(CLI::App& options)
{
    const auto files = std::make_shared<std::vector<std::string>>();
    options.add_option("FILE", *files)->required();
    return [files] { return run(*files); };
}

} // namespace teskel::commands
