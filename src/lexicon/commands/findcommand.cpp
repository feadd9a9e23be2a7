// SPDX-License-Identifier: MIT
#include "lexicon/commands/commands.h"
#include "lexicon/commands/commandsupport.h"
#include "lexicon/text/givenback.h"
#include "lexicon/text/utf8.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <iostream>
#include <memory>

#include <CLI/CLI.hpp>

using namespace Qt::StringLiterals;

namespace teskel::commands
{

namespace
{

struct FindOptions {
    std::string file;
    std::vector<std::string> words; ///< "-" reads words from the standard input, one a line
    bool prefix = false;
    bool json = false;
};

/// Prints what is found for one word after the other.
class Finder
{
public:
    Finder(LexiconReader& reader, const FindOptions& options)
        : _reader(reader)
        , _options(options)
    {
        if (_options.json)
            std::cout << '[';
    }

    void find(const std::string& word)
    {
        const bool isFound = _options.json ? printJson(word) : printText(word);
        if (!isFound) {
            complain("not found: " + word);
            _allFound = false;
        }
    }

    int finish()
    {
        if (_options.json)
            std::cout << (_words > 0 ? "\n]\n" : "]\n");
        return finishOutput(_allFound ? Done : Negative);
    }

private:
    bool printText(const std::string& word)
    {
        bool isFound = false;
        _reader.visitMatches(word, _options.prefix,
                             [&](std::string_view headword, std::string_view article) {
                                 isFound = true;
                                 std::cout << utf8::fromLatin1(headword) << '\n'
                                           << givenback::article(article) << "\n\n";
                                 return static_cast<bool>(std::cout);
                             });
        return isFound;
    }

    bool printJson(const std::string& word)
    {
        QJsonArray entries;
        _reader.visitMatches(
            word, _options.prefix, [&](std::string_view headword, std::string_view article) {
                entries.append(QJsonObject{
                    {u"headword"_s, QString::fromStdString(utf8::fromLatin1(headword))},
                    {u"article"_s, QString::fromStdString(givenback::article(article))}});
                return true;
            });
        const QJsonObject result{{u"word"_s, QString::fromStdString(word)},
                                 {u"entries"_s, entries}};
        std::cout << (_words++ > 0 ? ",\n" : "\n")
                  << QJsonDocument(result).toJson(QJsonDocument::Compact).toStdString();
        return !entries.isEmpty();
    }

    LexiconReader& _reader;
    const FindOptions& _options;
    size_t _words = 0;
    bool _allFound = true;
};

int run(const FindOptions& options)
{
    LexiconReader reader;
    if (const auto status = openLexicon(reader, options.file); status != LexiconReader::Status::Ok)
        return exitCode(status);
    Finder finder(reader, options);
    for (const std::string& word : options.words) {
        if (word != "-") {
            finder.find(word);
            continue;
        }
        for (std::string line; std::getline(std::cin, line);) {
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
    options.add_flag("--json", request->json, "Print a JSON array with an object for each word");
    return [request] { return run(*request); };
}

} // namespace teskel::commands
