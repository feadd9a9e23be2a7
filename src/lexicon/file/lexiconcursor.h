// SPDX-License-Identifier: MIT
#pragma once

#include "lexicon/file/lexiconreader.h"

#include <string>
#include <utility>
#include <vector>

namespace teskel
{

/// Steps through a lexicon by groups of entries whose headwords fold alike, for walks through
/// several lexicons at once.
class LexiconCursor
{
public:
    using Entry = std::pair<std::string, std::string>; ///< headword and article, Latin-1

    /// `reader` has a lexicon open and must outlive the cursor.
    explicit LexiconCursor(LexiconReader& reader)
        : _reader(reader)
    {
    }

    /// Steps to the next group. On failure returns false and says why in `error`; a file whose
    /// headwords are not in order fails.
    bool next(std::string& error);

    /// Empty behind the last one.
    const std::vector<Entry>& group() const { return _group; }
    /// Any headword of the group.
    const std::string& headword() const { return _group.front().first; }

private:
    bool fetchEntry(Entry& entry, bool& isEnd, std::string& error);

    LexiconReader& _reader;
    unsigned _record = 0;        ///< the next one to read
    std::vector<Entry> _entries; ///< of the last one that was read
    size_t _place = 0;           ///< in them
    std::vector<Entry> _group;
};

} // namespace teskel
