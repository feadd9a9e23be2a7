// SPDX-License-Identifier: MIT
#include "dictionary/latin1fold.h"
#include "lexicon/commands/commands.h"
#include "lexicon/commands/commandsupport.h"
#include "lexicon/commands/jsonline.h"
#include "lexicon/commands/outputs.h"
#include "lexicon/file/lexiconcursor.h"
#include "lexicon/text/utf8.h"

#include <algorithm>
#include <iostream>
#include <memory>

#include <CLI/CLI.hpp>

using namespace Qt::StringLiterals;

namespace teskel::commands
{

namespace
{

using Entry = LexiconCursor::Entry;

struct DiffOptions {
    std::string before;
    std::string after;
    bool json = false;
};

/// Walks through two lexicons side by side and prints how their headwords differ.
class Differ
{
public:
    Differ(LexiconReader& before, LexiconReader& after, const DiffOptions& options)
        : _before(before)
        , _after(after)
        , _options(options)
    {
    }

    /// False when a lexicon cannot be read to its end, which was told then.
    bool run()
    {
        if (!step(_before, _options.before) || !step(_after, _options.after))
            return false;
        while (!_before.group().empty() || !_after.group().empty()) {
            const int order = compare();
            printGroup(order <= 0 ? _before.group() : std::vector<Entry>(),
                       order >= 0 ? _after.group() : std::vector<Entry>());
            if ((order <= 0 && !step(_before, _options.before)) ||
                (order >= 0 && !step(_after, _options.after)) || !std::cout)
                return false;
        }
        return true;
    }

    bool isSame() const { return _isSame; }

private:
    static bool step(LexiconCursor& cursor, const std::string& file)
    {
        std::string error;
        if (cursor.next(error))
            return true;
        complain(file + ": " + error);
        return false;
    }

    /// Below 0 when the next group is one of the first lexicon alone, above 0 of the second alone.
    int compare() const
    {
        if (_before.group().empty() || _after.group().empty())
            return _before.group().empty() ? 1 : -1;
        return foldedCompare(_before.headword().c_str(), _after.headword().c_str());
    }

    void printGroup(const std::vector<Entry>& before, std::vector<Entry> after)
    {
        for (const Entry& entry : before) {
            const auto same = std::find_if(after.begin(), after.end(), [&](const Entry& other) {
                return other.first == entry.first;
            });
            if (same == after.end()) {
                print("removed", entry.first);
                continue;
            }
            if (same->second != entry.second)
                print("changed", entry.first);
            after.erase(same);
        }
        for (const Entry& entry : after)
            print("added", entry.first);
    }

    void print(const std::string& change, const std::string& headword)
    {
        _isSame = false;
        const std::string word = utf8::fromLatin1(headword);
        if (_options.json)
            printJsonLine({{u"change"_s, jsonText(change)}, {u"headword"_s, jsonText(word)}});
        else
            std::cout << change << '\t' << word << '\n';
    }

    LexiconCursor _before;
    LexiconCursor _after;
    const DiffOptions& _options;
    bool _isSame = true;
};

int run(const DiffOptions& options)
{
    if (!isOutputApart(options.before, "lexicon " + options.before) ||
        !isOutputApart(options.after, "lexicon " + options.after))
        return Usage;
    const FileStates states({options.before, options.after});
    LexiconReader before;
    LexiconReader after;
    if (openLexicon(before, options.before, states) != LexiconReader::Status::Ok ||
        openLexicon(after, options.after, states) != LexiconReader::Status::Ok)
        return Failed;
    Differ differ(before, after, options);
    if (!differ.run())
        return finishOutput(Failed, states);
    return finishOutput(differ.isSame() ? Done : Negative, states);
}

} // namespace

Action diff(CLI::App& options)
{
    const auto request = std::make_shared<DiffOptions>();
    options.add_option("BEFORE", request->before)->required();
    options.add_option("AFTER", request->after)->required();
    options.add_flag("--json", request->json, "Print a JSON object for each headword, one a line");
    return [request] { return run(*request); };
}

} // namespace teskel::commands
