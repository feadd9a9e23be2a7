// SPDX-License-Identifier: MIT
#pragma once

#include "lexicon/sources/input/inputfile.h"
#include "lexicon/sources/lexiconsource.h"
#include "lexicon/sources/likeness.h"
#include "lexicon/sources/stardict/stardictindex.h"

namespace teskel
{

struct StarDictArticle;

/// Reads the entries of a StarDict dictionary.
class StarDictSource : public LexiconSource
{
public:
    /// `head` are the first bytes of the file, if there is one of that name.
    static Likeness looksLike(const std::string& path, std::string_view head);

    /// `path` is that of the ".ifo", of the ".idx", ".syn" or ".dict", packed or not, or what they
    /// have in common.
    explicit StarDictSource(std::string path)
        : _path(std::move(path))
    {
    }

    bool read(EntryIntake& intake, std::string& error) override;
    /// Of the description; articles are of both kinds.
    Latin1Converter::Text textKind() const override { return Latin1Converter::Text::PlainArticle; }

private:
    bool open(std::string& error);
    bool openIndex(StarDictIndex& index, std::string& error) const;
    bool nextWord(StarDictIndex& index, StarDictIndex::Word& word, bool& isEnd, std::string& error);
    bool findLayout(std::string& error);
    bool readArticle(const StarDictIndex::Word& word, StarDictArticle& article, std::string& error);
    void addArticle(EntryIntake& intake, const StarDictIndex::Word& word,
                    const StarDictArticle& article);
    static void note(EntryIntake& intake, const StarDictArticle& article, const std::string& where);
    std::string placeOf(const StarDictIndex::Word& word) const;

    std::string _path;
    std::string _infoPath;
    std::string _indexPath;
    std::string _alternativesPath;
    StarDictInfo _info;
    InputFile _articles;
    uint32_t _number = 0;       ///< of the last word and its alternatives
    std::string _data;          // kept to reuse its memory
    bool _repeatsWords = false; ///< plain articles begin with the line of their word
};

} // namespace teskel
