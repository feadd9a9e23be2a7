// SPDX-License-Identifier: MIT
#pragma once

#include "lexicon/sources/lexiconsource.h"

namespace teskel
{

/// Reads entries from tab-separated text, whose articles are rich text already.
class TsvSource : public LexiconSource
{
public:
    /// Whether a file of that name, or "-" for the standard input, is such text.
    static bool isNamedBy(std::string_view path);

    /// `path` is "-" for the standard input.
    explicit TsvSource(std::string path)
        : _path(std::move(path))
    {
    }

    bool read(EntryIntake& intake, std::string& error) override;
    Latin1Converter::Text textKind() const override { return Latin1Converter::Text::MarkupArticle; }

private:
    std::string _path;
};

} // namespace teskel
