// SPDX-License-Identifier: MIT
#pragma once

#include "lexicon/entries/entryintake.h"

#include <string>

namespace teskel
{

/// Where the entries of a lexicon come from.
class LexiconSource
{
public:
    virtual ~LexiconSource() = default;

    /// Hands all entries to `intake`. On failure returns false and says why in `error`.
    virtual bool read(EntryIntake& intake, std::string& error) = 0;

    /// What the source says of itself, UTF-8, once it was read; empty when it says nothing.
    const std::string& description() const { return _description; }
    /// What kind of text the source's articles and its description are.
    virtual Latin1Converter::Text textKind() const = 0;

protected:
    LexiconSource() = default;
    LexiconSource(const LexiconSource&) = delete;
    LexiconSource& operator=(const LexiconSource&) = delete;

    std::string _description;
};

} // namespace teskel
