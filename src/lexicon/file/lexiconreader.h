// SPDX-License-Identifier: MIT
#pragma once

#include "dictionary/qtdictionary.h"

#include <functional>
#include <memory>
#include <string>
#include <string_view>

namespace teskel
{

/// Reads a finished lexicon through the engine for the commands that show it. Texts come out as
/// UTF-8 unless said otherwise.
class LexiconReader
{
public:
    enum class Status {
        Ok,
        Unreadable, ///< the file cannot be read at all
        Invalid,    ///< the file is no lexicon, or is damaged
    };
    /// Called with headword and article in Latin-1; false ends the walk.
    using Visitor = std::function<bool(std::string_view headword, std::string_view article)>;

    /// `path` is in the bytes of the file system. On failure `error` says why.
    Status open(const std::string& path, std::string& error);

    std::string name();
    std::string description();
    /// Whether the description can be unpacked; else Invalid.
    Status checkDescription(std::string& error);
    /// Whether the description, as it is stored, has letter references.
    bool describesInReferences();
    unsigned recordCount() { return _dictionary.getWordRecordCount(); }

    /// Walks through all entries whose headwords do not compare below `from` (UTF-8). A record that
    /// cannot be unpacked ends the walk with Invalid.
    Status visitFrom(std::string_view from, const Visitor& visitor, std::string& error);

    /// Walks through the entries of a word record, from 0; likewise.
    Status visitRecord(unsigned record, const Visitor& visitor, std::string& error);

    /// Walks through the entries whose headwords equal `word` (UTF-8) or, with `prefix`, begin with
    /// it, without regard to case. Unreadable when a record cannot be read that may hold some, with
    /// a sentence on it in `error`.
    Status visitMatches(std::string_view word, bool prefix, const Visitor& visitor,
                        std::string& error);

private:
    bool visitEqual(const std::string& latin1, bool prefix, const Visitor& visitor);
    unsigned recordBefore(const std::string& latin1);

    QtDictionary _dictionary;
};

} // namespace teskel
