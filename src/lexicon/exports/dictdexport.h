// SPDX-License-Identifier: MIT
#pragma once

#include "lexicon/exports/dictionaryexport.h"
#include "lexicon/file/pendingfile.h"

#include <cstdint>
#include <vector>

namespace teskel
{

/// Writes a dictd dictionary: BASE.index and BASE.dict, articles as plain text below their
/// headwords. (Format: dictd(8) and dictfmt(1), "DATABASE FORMAT".)
class DictdExport : public DictionaryExport
{
public:
    /// `base` is the path without its suffix; `title` is plain UTF-8 on one line.
    DictdExport(const std::string& base, const std::string& title);

    std::vector<std::string> files() const override
    {
        return {_index.target(), _articles.target()};
    }
    bool add(std::string_view headword, std::string_view article) override;
    bool commit(std::string& error) override;

private:
    struct Line {
        std::string key; ///< UTF-8
        uint64_t offset;
        uint64_t size;
    };

    bool addText(std::string key, const std::string& text);

    PendingFile _index;
    PendingFile _articles;
    std::vector<Line> _lines;
    uint64_t _bytes = 0; ///< of the articles
};

} // namespace teskel
