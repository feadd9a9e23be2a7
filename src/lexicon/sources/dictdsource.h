// SPDX-License-Identifier: MIT
#pragma once

#include "lexicon/sources/dictdindex.h"
#include "lexicon/sources/input/inputfile.h"
#include "lexicon/sources/lexiconsource.h"
#include "lexicon/sources/likeness.h"

namespace teskel
{

/// Reads the entries of a dictd dictionary, whose articles are plain text.
class DictdSource : public LexiconSource
{
public:
    /// `head` are the first bytes of the file, if there is one of that name.
    static Likeness looksLike(const std::string& path, std::string_view head);

    /// `path` is that of the ".index", of the ".dict" or ".dict.dz", or what they have in common.
    explicit DictdSource(std::string path)
        : _path(std::move(path))
    {
    }

    bool read(EntryIntake& intake, std::string& error) override;
    Latin1Converter::Text textKind() const override { return Latin1Converter::Text::PlainArticle; }

private:
    bool findFiles(std::string& error);
    bool openArticles(InputFile& articles, std::string& error) const;
    void takeMetadata(const DictdIndex::Line& line, std::string_view text);

    std::string _path;
    std::string _indexPath;
    std::string _articlesPath;
};

} // namespace teskel
