// SPDX-License-Identifier: MIT
#include "lexicon/build/sourcetable.h"

#include "lexicon/sources/dictdsource.h"
#include "lexicon/sources/input/inputfile.h"
#include "lexicon/sources/input/wideencoding.h"
#include "lexicon/sources/stardict/stardictsource.h"
#include "lexicon/sources/tei/teisource.h"
#include "lexicon/sources/tsvsource.h"

#include <algorithm>

namespace teskel
{

namespace
{

/// How much of the content is shown to the kinds, bytes.
constexpr size_t headBytes = wideSampleBytes;

/// How the text of a source lies in its files.
enum class Form {
    Pieces,    ///< beside numbers of bytes
    Document,  ///< from beginning to end; it says itself in which encoding
    PlainText, ///< from beginning to end
};

/// A kind of source.
struct SourceKind {
    const char* name; ///< as given to --from
    const char* help;
    Form form;
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
    {"dictd", "a dictd dictionary (.index, .dict or .dict.dz)", Form::Pieces,
     DictdSource::looksLike, makeNamed<DictdSource>},
    {"stardict", "a StarDict dictionary (.ifo)", Form::Pieces, StarDictSource::looksLike,
     makeNamed<StarDictSource>},
    {"tei", "a TEI document of the FreeDict project (.tei)", Form::Document, TeiSource::looksLike,
     makeOpened<TeiSource>},
    {"tsv", "tab-separated text (.tsv, or - for the standard input)", Form::PlainText,
     TsvSource::looksLike, makeOpened<TsvSource>},
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

/// About a text that begins as `head`.
std::string sentenceOnWideness(const std::string& name, std::string_view head,
                               const std::string& encoding)
{
    const size_t place = placeOfWideness(head);
    const std::string_view before = head.substr(0, place);
    const auto line = static_cast<uint64_t>(std::count(before.begin(), before.end(), '\n'));
    const size_t inLine = place - (before.rfind('\n') + 1); // at the beginning when there is none
    return placeInFile(name, line + 1) + ": byte " + std::to_string(inLine + 1) + " (" +
           inHexadecimal(head[place]) + ") is no UTF-8; it is " + encoding + ", which --encoding " +
           encoding + " reads";
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
                                         std::string& error, const EncodingOptions& encoding)
{
    auto input = std::make_unique<InputFile>();
    std::string_view head;
    std::string wide;
    if (input->open(path, error)) {
        head = input->head(headBytes);
        if (encoding.name.empty() && !encoding.replacesInvalid)
            wide = wideEncodingOf(head);
        if (!encoding.name.empty()) {
            input->decodeAs(encoding.name);
            head = input->head(headBytes);
        }
    } else {
        input = nullptr;
    }
    const SourceKind* kind = kindName.empty() ? kindOf(path, head) : kindNamed(kindName);
    if (!wide.empty() && (!kind || kind->form == Form::PlainText)) {
        error = sentenceOnWideness(input->name(), head, wide);
        return nullptr;
    }
    if (kind && kind->form == Form::Pieces && !encoding.name.empty() &&
        !TextDecoder::isOfBytes(encoding.name)) {
        error = path + " cannot be in " + encoding.name + ": it is " + kind->help;
        return nullptr;
    }
    if (kind && (input || kind->looksLike(path, {}) == Likeness::Named)) {
        auto source = kind->make(path, std::move(input));
        if (source)
            source->setEncoding(encoding);
        return source;
    }
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
