// SPDX-License-Identifier: MIT
#include "lexicon/sources/lexiconsource.h"

#include "lexicon/sources/dictdsource.h"
#include "lexicon/sources/tsvsource.h"

namespace teskel
{

std::unique_ptr<LexiconSource> LexiconSource::forPath(const std::string& path, std::string& error)
{
    if (path == "-" || path.ends_with(".tsv"))
        return std::make_unique<TsvSource>(path);
    if (path.ends_with(".index"))
        return std::make_unique<DictdSource>(path);
    error = path + " is neither a dictd .index nor a .tsv file";
    return nullptr;
}

} // namespace teskel
