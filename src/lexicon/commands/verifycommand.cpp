// SPDX-License-Identifier: MIT
#include "lexicon/commands/commands.h"
#include "lexicon/commands/commandsupport.h"
#include "lexicon/commands/jsonline.h"
#include "lexicon/commands/outputs.h"
#include "lexicon/text/counted.h"
#include "lexicon/verify/checktable.h"
#include "lexicon/verify/lexiconverifier.h"

#include <QJsonArray>

#include <algorithm>
#include <iostream>
#include <memory>

#include <CLI/CLI.hpp>

using namespace Qt::StringLiterals;

namespace teskel::commands
{

namespace
{

struct VerifyOptions {
    std::vector<std::string> files;
    std::vector<std::string> checks; ///< names; all checks when it is empty
    bool quick = false;
    bool listChecks = false;
    bool json = false;
};

int listChecks()
{
    for (const Check& check : allChecks())
        std::cout << check.name << '\t' << check.rule << '\n';
    return finishOutput(Done);
}

void printText(const std::string& file, const LexiconVerifier& verifier)
{
    for (const Finding& finding : verifier.findings())
        std::cout << file << ": " << finding.text() << '\n';
    if (!verifier.findings().empty())
        return;
    std::cout << file << ": valid, ";
    if (const auto headwords = verifier.headwords())
        std::cout << counted(*headwords, "headword") << " in ";
    std::cout << counted(verifier.wordRecords(), "word record");
    const char* separator = "; not checked: ";
    for (const std::string& name : verifier.leftOut()) {
        std::cout << separator << name;
        separator = ", ";
    }
    std::cout << '\n';
}

void printJson(const std::string& file, const LexiconVerifier& verifier)
{
    QJsonArray findings;
    for (const Finding& finding : verifier.findings())
        findings.append(QJsonObject{{u"check"_s, jsonText(finding.check)},
                                    {u"message"_s, jsonText(finding.sentence)}});
    QJsonArray leftOut;
    for (const std::string& name : verifier.leftOut())
        leftOut.append(jsonText(name));
    QJsonObject object{{u"file"_s, jsonText(file)},
                       {u"valid"_s, verifier.findings().empty()},
                       {u"findings"_s, findings},
                       {u"notChecked"_s, leftOut},
                       {u"wordRecords"_s, static_cast<qint64>(verifier.wordRecords())}};
    if (const auto headwords = verifier.headwords())
        object.insert(u"headwords"_s, static_cast<qint64>(*headwords));
    printJsonLine(object);
}

int verifyOne(const std::string& file, const VerifyOptions& options)
{
    LexiconVerifier verifier;
    for (const std::string& name : options.checks)
        verifier.select(name);
    if (options.quick)
        verifier.selectQuick();
    const FileStates states({file});
    std::string error;
    if (!verifier.run(file, error) || !states.areKept(error)) {
        complain(error);
        return Failed;
    }
    if (options.json)
        printJson(file, verifier);
    else
        printText(file, verifier);
    return verifier.findings().empty() ? Done : Negative;
}

int run(const VerifyOptions& options)
{
    if (options.listChecks)
        return listChecks();
    if (options.files.empty()) {
        complain("verify: FILE is required");
        return Usage;
    }
    for (const std::string& file : options.files) {
        if (!isOutputApart(file, "lexicon " + file))
            return Usage;
    }
    int code = Done;
    for (const std::string& file : options.files)
        code = std::max(code, verifyOne(file, options));
    return finishOutput(code);
}

std::vector<std::string> checkNames()
{
    std::vector<std::string> names;
    for (const Check& check : allChecks())
        names.emplace_back(check.name);
    return names;
}

} // namespace

Action verify(CLI::App& options)
{
    const auto request = std::make_shared<VerifyOptions>();
    options.add_option("FILE", request->files);
    CLI::Option* checks =
        options
            .add_option("--check", request->checks,
                        "Make this check alone, and those that it needs; may be given several "
                        "times")
            ->check(CLI::IsMember(checkNames()))
            ->allow_extra_args(false);
    options.add_flag("--quick", request->quick, "Leave out the checks that unpack word records")
        ->excludes(checks);
    options.add_flag("--list-checks", request->listChecks,
                     "Print the checks, one a line: name, tab, rule");
    options.add_flag("--json", request->json, "Print a JSON object for each file, one a line");
    return [request] { return run(*request); };
}

} // namespace teskel::commands
