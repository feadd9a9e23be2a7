// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace teskel
{

/// Writes a lexicon in the files of another program, all or nothing.
class DictionaryExport
{
public:
    DictionaryExport() = default;
    DictionaryExport(const DictionaryExport&) = delete;
    DictionaryExport& operator=(const DictionaryExport&) = delete;
    virtual ~DictionaryExport() = default;

    /// The paths of the files, in the bytes of the file system.
    virtual std::vector<std::string> files() const = 0;

    /// Takes an entry, Latin-1. False when something could not be written; commit() says what.
    virtual bool add(std::string_view headword, std::string_view article) = 0;

    /// Completes the files and gives them their names. On failure returns false, leaves nothing
    /// behind and says why in `error`.
    virtual bool commit(std::string& error) = 0;
};

} // namespace teskel
