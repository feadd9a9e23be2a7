// SPDX-License-Identifier: MIT
#pragma once

#include "lexicon/exports/dictionaryexport.h"
#include "lexicon/file/pendingfile.h"

#include <cstdint>
#include <vector>

namespace teskel
{

/// Writes a StarDict dictionary: BASE.ifo, BASE.idx and BASE.dict, articles of type "h" (HTML).
/// (Format: "Format for StarDict dictionary files", which comes with StarDict 3.)
class StarDictExport : public DictionaryExport
{
public:
    /// `base` is the path without its suffix; `title` is plain UTF-8 on one line.
    StarDictExport(const std::string& base, std::string title);

    std::vector<std::string> files() const override
    {
        return {_info.target(), _index.target(), _articles.target()};
    }
    bool add(std::string_view headword, std::string_view article) override;
    bool commit(std::string& error) override;

private:
    struct Word {
        std::string key; ///< UTF-8, at most 255 bytes
        uint32_t offset;
        uint32_t size;
    };

    std::string info(uint64_t indexBytes) const;

    PendingFile _info;
    PendingFile _index;
    PendingFile _articles;
    std::string _base;
    std::string _title;
    std::vector<Word> _words;
    uint64_t _bytes = 0; ///< of the articles
};

} // namespace teskel
