// SPDX-License-Identifier: MIT
#pragma once

#include "lexicon/entries/entryfile.h"

#include <string>

class QtDictionary;

namespace teskel
{

/// Opens a freshly written dictionary as the reader does and looks words up in it.
class SpotCheck
{
public:
    /// Every so many headwords one is looked up, the first and the last among them.
    static constexpr uint64_t interval = 1000;

    /// `path` is in the bytes of the file system.
    explicit SpotCheck(std::string path)
        : _path(std::move(path))
    {
    }

    /// Whether the file holds what went in. If not, `error` names the first difference.
    bool run(EntryFile& entries, std::string& error);

    size_t checkedWords() const { return _checkedWords; }

private:
    bool find(QtDictionary& dictionary, const LexiconEntry& entry, std::string& error);

    std::string _path;
    size_t _checkedWords = 0;
};

} // namespace teskel
