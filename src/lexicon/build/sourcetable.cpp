// SPDX-License-Identifier: MIT
#include "lexicon/build/sourcetable.h"

#include "lexicon/sources/dictdsource.h"
#include "lexicon/sources/input/inputfile.h"
#include "lexicon/sources/stardict/stardictsource.h"
#include "lexicon/sources/tei/teisource.h"
#include "lexicon/sources/tsvsource.h"

namespace teskel
{

namespace
{

/// How much of the content is shown to the kinds, bytes.
constexpr size_t headBytes = 1U << 16;

/// A kind of source.
struct SourceKind {
    const char* name; ///< as given to --from
    const char* help;
    /// `path` may be the name that several files have in common; `head` is then empty.
    Likeness (*looksLike)(const std::string& path, std::string_view head);
    /// `input` stands at its beginning, or is null when no file is called `path`.
    std::unique_ptr<LexiconSource> (*make)(const std::string& path,
                                           std::unique_ptr<InputFile> input);
};

template<typename Source>
std::unique_ptr<LexiconSource> makeNamed(const std::string& path, std::unique_ptr<InputFile>)
{
    return std::make_unique<Source>(path);
}

template<typename Source>
std::unique_ptr<LexiconSource> makeOpened(const std::string&, std::unique_ptr<InputFile> input)
{
    return input ? std::make_unique<Source>(std::move(input)) : nullptr;
}

constexpr SourceKind kinds[] = {
    {"dictd", "a dictd dictionary (.index, .dict or .dict.dz)", DictdSource::looksLike,
     makeNamed<DictdSource>},
    {"stardict", "a StarDict dictionary (.ifo)", StarDictSource::looksLike,
     makeNamed<StarDictSource>},
    {"tei", "a TEI document of the FreeDict project (.tei)", TeiSource::looksLike,
     makeOpened<TeiSource>},
    {"tsv", "tab-separated text in UTF-8 (.tsv, or - for the standard input)", TsvSource::looksLike,
     makeOpened<TsvSource>},
};

const SourceKind* kindOf(const std::string& path, std::string_view head)
{
    const SourceKind* best = nullptr;
    Likeness most = Likeness::None;
    for (const SourceKind& kind : kinds) {
        if (const Likeness likeness = kind.looksLike(path, head); likeness > most) {
            most = likeness;
            best = &kind;
        }
    }
    return best;
}

const SourceKind* kindNamed(const std::string& name)
{
    for (const SourceKind& kind : kinds) {
        if (kind.name == name)
            return &kind;
    }
    return nullptr;
}

std::string listOfKinds()
{
    std::string list;
    for (const std::string& name : sourceKinds())
        list += (list.empty() ? "" : ", ") + name;
    return list;
}

} // namespace

std::unique_ptr<LexiconSource> sourceFor(const std::string& path, const std::string& kindName,
                                         std::string& error)
{
    auto input = std::make_unique<InputFile>();
    std::string_view head;
    if (input->open(path, error))
        head = input->head(headBytes);
    else
        input = nullptr;
    const SourceKind* kind = kindName.empty() ? kindOf(path, head) : kindNamed(kindName);
    if (kind && (input || kind->looksLike(path, {}) == Likeness::Named))
        return kind->make(path, std::move(input));
    std::string rest;
    if (input && input->readNext(rest, error))
        error = input->name() + " is no dictionary of a known kind (" + listOfKinds() +
                "); --from says what it is";
    return nullptr;
}

std::vector<std::string> sourceKinds()
{
    std::vector<std::string> names;
    for (const SourceKind& kind : kinds)
        names.emplace_back(kind.name);
    return names;
}

std::string sourceHelp()
{
    std::string help;
    for (const SourceKind& kind : kinds)
        help += (help.empty() ? "Of one kind or several: " : ", ") + std::string(kind.help);
    return help + "; packed by gzip, xz or zstd, or not";
}

} // namespace teskel
