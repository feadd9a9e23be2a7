// SPDX-License-Identifier: MIT
#include "dictionary/articleformatter.h"
#include "lexicon/commands/commands.h"
#include "lexicon/commands/commandsupport.h"
#include "lexicon/commands/jsonline.h"
#include "lexicon/commands/outputs.h"
#include "lexicon/text/givenback.h"
#include "lexicon/text/utf8.h"
#include "script/letterreference.h"

#include <QJsonArray>

#include <algorithm>
#include <functional>
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

struct FindOptions {
    std::string file;
    std::vector<std::string> words; ///< "-" reads words from the standard input, one a line
    std::optional<uint64_t> limit;  ///< entries for a word
    bool prefix = false;
    bool html = false;
    bool json = false;
};

QString latin1Text(std::string_view latin1)
{
    return QString::fromLatin1(latin1.data(), static_cast<qsizetype>(latin1.size()));
}

/// What the reader's view is given to show.
QString richTextOf(std::string_view headword, std::string_view article)
{
    return withLetterReferencesResolved(ArticleFormatter::headword(latin1Text(headword)) +
                                        ArticleFormatter::format(latin1Text(article)));
}

/// Prints what is found for one word after the other.
class Finder
{
public:
    Finder(LexiconReader& reader, const FindOptions& options, const FileStates& states)
        : _reader(reader)
        , _options(options)
        , _states(states)
    {
    }

    void find(const std::string& word)
    {
        bool isFound = false;
        std::string error;
        const LexiconReader::Status status =
            _options.json ? printJson(word, isFound, error) : printText(word, isFound, error);
        if (!goesOn())
            return;
        if (status != LexiconReader::Status::Ok) {
            complain(_options.file + ": " + error + ", where \"" + word + "\" would be");
            _code = Failed;
        } else if (!isFound) {
            complain("not found: " + word);
            _code = std::max<int>(_code, Negative);
        }
    }

    /// False once the lexicon has changed, of which nothing more is to be had.
    bool goesOn() const { return _goesOn; }

    int finish() const { return finishOutput(_code, _states); }

private:
    /// `isFound` tells whether there is any; `print` is called for as many as are wanted.
    LexiconReader::Status
    visit(const std::string& word, bool& isFound, std::string& error,
          const std::function<void(std::string_view, std::string_view)>& print)
    {
        uint64_t left = _options.limit.value_or(std::numeric_limits<uint64_t>::max());
        const auto visitor = [&](std::string_view headword, std::string_view article) {
            isFound = true;
            if (left > 0)
                print(headword, article);
            return left > 0 && --left > 0 && std::cout;
        };
        const auto status = _reader.visitMatches(word, _options.prefix, visitor, error);
        std::string change;
        _goesOn = _states.areKept(change); // finish() says so
        return status;
    }

    LexiconReader::Status printText(const std::string& word, bool& isFound, std::string& error)
    {
        return visit(word, isFound, error,
                     [this](std::string_view headword, std::string_view article) {
                         if (_options.html)
                             std::cout << richTextOf(headword, article).toStdString() << "\n\n";
                         else
                             std::cout << utf8::fromLatin1(headword) << '\n'
                                       << givenback::article(article) << "\n\n";
                     });
    }

    LexiconReader::Status printJson(const std::string& word, bool& isFound, std::string& error)
    {
        QJsonArray entries;
        const auto print = [&](std::string_view headword, std::string_view article) {
            QJsonObject entry{{u"headword"_s, latin1Text(headword)}};
            if (_options.html)
                entry.insert(u"html"_s, richTextOf(headword, article));
            else
                entry.insert(u"article"_s, jsonText(givenback::article(article)));
            entries.append(entry);
        };
        const LexiconReader::Status status = visit(word, isFound, error, print);
        if (goesOn() && (status == LexiconReader::Status::Ok || isFound))
            printJsonLine({{u"word"_s, jsonText(word)}, {u"entries"_s, entries}});
        return status;
    }

    LexiconReader& _reader;
    const FindOptions& _options;
    const FileStates& _states;
    bool _goesOn = true;
    int _code = Done;
};

int run(const FindOptions& options)
{
    if (!isOutputApart(options.file, "lexicon " + options.file))
        return Usage;
    if (std::find(options.words.begin(), options.words.end(), "-") != options.words.end() &&
        !isOutputApart("/dev/stdin", "standard input"))
        return Usage;
    const FileStates states({options.file});
    LexiconReader reader;
    if (const auto status = openLexicon(reader, options.file, states);
        status != LexiconReader::Status::Ok)
        return exitCode(status);
    Finder finder(reader, options, states);
    for (const std::string& word : options.words) {
        if (!finder.goesOn())
            break;
        if (word != "-") {
            finder.find(word);
            continue;
        }
        for (std::string line; finder.goesOn() && std::getline(std::cin, line);) {
            if (!line.empty())
                finder.find(line);
        }
    }
    return finder.finish();
}

} // namespace

Action find(CLI::App& options)
{
    const auto request = std::make_shared<FindOptions>();
    options.add_option("FILE", request->file)->required();
    options
        .add_option("WORD", request->words,
                    "Words to look up; - reads them from the standard input, one a line")
        ->required();
    options.add_flag("--prefix", request->prefix, "Find all headwords that begin with a word");
    options.add_option("--limit", request->limit, "Print at most so many entries for a word")
        ->check(wholeNumber());
    options.add_flag("--html", request->html, "Print the rich text that the reader shows");
    options.add_flag("--json", request->json, "Print a JSON object for each word, one a line");
    return [request] { return run(*request); };
}

} // namespace teskel::commands
