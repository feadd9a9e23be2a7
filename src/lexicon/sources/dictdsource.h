// SPDX-License-Identifier: MIT
#pragma once

#include "lexicon/sources/dictdindex.h"
#include "lexicon/sources/inputfile.h"
#include "lexicon/sources/lexiconsource.h"

namespace teskel
{

/// Reads the entries of a dictd dictionary, whose articles are plain text.
class DictdSource : public LexiconSource
{
public:
    /// Whether a file of that name is the index of such a dictionary.
    static bool isNamedBy(std::string_view path);

    /// `indexPath` ends with ".index"; the articles are in ".dict.dz" or ".dict" beside it.
    explicit DictdSource(std::string indexPath)
        : _indexPath(std::move(indexPath))
    {
    }

    bool read(EntryIntake& intake, std::string& error) override;
    Latin1Converter::Text textKind() const override { return Latin1Converter::Text::PlainArticle; }

private:
    bool openArticles(InputFile& articles, std::string& error) const;
    bool readDescription(const DictdIndex& index, InputFile& articles, std::string& error);

    std::string _indexPath;
};

} // namespace teskel
