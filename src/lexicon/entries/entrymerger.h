// SPDX-License-Identifier: MIT
#pragma once

#include "lexicon/entries/buildreport.h"
#include "lexicon/entries/entrygroups.h"
#include "lexicon/text/textoptions.h"

#include <string>
#include <string_view>
#include <vector>

namespace teskel
{

/// Makes one entry of all entries with the same headword.
///
/// Their articles stand one under the other in the order of the source, numbered unless one of them
/// is numbered already; in the plain form, numbers end at "9.". A repeated article is kept once.
/// Where words fell together that are written differently, the articles of each stand below the
/// word as written and have numbers of their own; those of the word that is written like the
/// headword come first.
class EntryMerger : public EntryStream
{
public:
    /// `sorted` holds the entries in the order of a lexicon; it must outlive the merger.
    EntryMerger(EntryStream& sorted, BuildReport& report, bool numbers,
                LatinForm form = LatinForm::LetterReferences);

    bool next(LexiconEntry& entry) override;

private:
    /// The articles of one word, behind the line that gives it as written.
    struct Word {
        std::string_view line; ///< mostly empty
        std::vector<std::string_view> articles;
    };

    LexiconEntry merged(const std::vector<LexiconEntry>& group);
    std::vector<Word> wordsOf(const std::vector<LexiconEntry>& group);
    bool isNumbered(std::string_view article) const;
    std::string number(unsigned sense) const;
    void append(const Word& word);

    EntryGroups _groups;
    BuildReport& _report;
    bool _numbers;
    LatinForm _form;
    EntryArena _arena;
    std::string _article; // kept to reuse its memory
};

} // namespace teskel
