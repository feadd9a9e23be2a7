// SPDX-License-Identifier: MIT
#include "lexicon/sources/sourcetable.h"

#include "lexicon/sources/dictdsource.h"
#include "lexicon/sources/tsvsource.h"

namespace teskel
{

namespace
{

/// A kind of source.
struct SourceKind {
    const char* name; ///< in "is neither ... nor ..."
    const char* help;
    bool (*isNamedBy)(std::string_view path);
    std::unique_ptr<LexiconSource> (*make)(const std::string& path);
};

template<typename Source>
std::unique_ptr<LexiconSource> make(const std::string& path)
{
    return std::make_unique<Source>(path);
}

constexpr SourceKind kinds[] = {
    {"a dictd .index", "A dictd .index with its .dict.dz or .dict beside it",
     DictdSource::isNamedBy, make<DictdSource>},
    {"a .tsv", "a UTF-8 .tsv, or - for TSV on the standard input", TsvSource::isNamedBy,
     make<TsvSource>},
};

} // namespace

std::unique_ptr<LexiconSource> sourceForPath(const std::string& path, std::string& error)
{
    std::string names;
    for (const SourceKind& kind : kinds) {
        if (kind.isNamedBy(path))
            return kind.make(path);
        names += (names.empty() ? " is neither " : " nor ") + std::string(kind.name);
    }
    error = path + names + " file";
    return nullptr;
}

std::string sourceHelp()
{
    std::string help;
    for (const SourceKind& kind : kinds)
        help += (help.empty() ? "" : ", ") + std::string(kind.help);
    return help;
}

} // namespace teskel
