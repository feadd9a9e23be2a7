// SPDX-License-Identifier: MIT
#include "lexicon/exports/exporttable.h"

#include "lexicon/exports/dictdexport.h"
#include "lexicon/exports/stardictexport.h"

namespace teskel
{

namespace
{

template<typename Export>
std::unique_ptr<DictionaryExport> make(const std::string& base, const std::string& title)
{
    return std::make_unique<Export>(base, title);
}

struct ExportKind {
    const char* name;
    std::unique_ptr<DictionaryExport> (*make)(const std::string& base, const std::string& title);
};

constexpr ExportKind kinds[] = {
    {"stardict", make<StarDictExport>},
    {"dictd", make<DictdExport>},
};

} // namespace

std::vector<std::string> exportNames()
{
    std::vector<std::string> names;
    for (const ExportKind& kind : kinds)
        names.emplace_back(kind.name);
    return names;
}

std::unique_ptr<DictionaryExport> makeExport(const std::string& name, const std::string& base,
                                             const std::string& title)
{
    for (const ExportKind& kind : kinds) {
        if (kind.name == name)
            return kind.make(base, title);
    }
    return nullptr;
}

} // namespace teskel
