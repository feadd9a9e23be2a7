// SPDX-License-Identifier: MIT
#pragma once

#include "lexicon/text/plainarticle.h"
#include "lexicon/text/textoptions.h"

#include <string>
#include <string_view>
#include <vector>

namespace teskel
{

/// An entry of a FreeDict dictionary, taken apart and laid out for a narrow window. UTF-8.
///
/// The index knows words only in small letters and without punctuation; the word as written stands
/// in the first line of the article, followed by its pronunciation between slashes, other forms in
/// parentheses and grammar tags. Texts of other dictd dictionaries come out whole: only a first
/// line that repeats the word is taken out.
struct FreeDictEntry {
    std::string headword;
    std::string article; ///< plain text, one paragraph a line
    /// The pronunciations in the article's first line.
    std::vector<TextSpan> pronunciations;

    /// @param key   the word as the index has it
    /// @param text  the article as the data file has it
    static FreeDictEntry parse(std::string_view key, std::string_view text,
                               const TextOptions& options = {});

    /// The form in which words are compared with keys: small letters and digits, single blanks.
    static std::string normalized(std::string_view text);
};

} // namespace teskel
