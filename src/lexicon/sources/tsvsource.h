// SPDX-License-Identifier: MIT
#pragma once

#include "lexicon/sources/input/inputfile.h"
#include "lexicon/sources/lexiconsource.h"
#include "lexicon/sources/likeness.h"

#include <memory>

namespace teskel
{

/// Reads entries from tab-separated text, whose articles are rich text already.
class TsvSource : public LexiconSource
{
public:
    /// `head` are the first bytes of the file, if there is one of that name.
    static Likeness looksLike(const std::string& path, std::string_view head);

    /// `input` stands at its beginning.
    explicit TsvSource(std::unique_ptr<InputFile> input)
        : _input(std::move(input))
    {
    }

    bool read(EntryIntake& intake, std::string& error) override;
    Latin1Converter::Text textKind() const override { return Latin1Converter::Text::MarkupArticle; }

private:
    bool takeLine(std::string_view line, const std::string& where, EntryIntake& intake,
                  std::string& error);

    std::unique_ptr<InputFile> _input;
    uint64_t _lineNumber = 0;
    uint32_t _entryNumber = 0;
};

} // namespace teskel
