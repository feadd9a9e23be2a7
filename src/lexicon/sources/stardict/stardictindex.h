// SPDX-License-Identifier: MIT
#pragma once

#include "lexicon/sources/stardict/stardictinfo.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace teskel
{

/// The words of a StarDict dictionary and the places of their articles: what its .idx and .syn
/// hold.
class StarDictIndex
{
public:
    struct Word {
        std::string_view key;       ///< UTF-8
        uint64_t offset = 0;        ///< of the article in the unpacked data, bytes
        uint32_t size = 0;          ///< of the article, bytes
        uint32_t place = 0;         ///< of the word in its file, from 1
        bool isAlternative = false; ///< comes from the .syn
    };

    /// Reads the files (paths in the bytes of the file system), each held to its size; an empty
    /// `alternativesPath` is none. On failure returns false and says why in `error`.
    bool read(const std::string& path, const std::string& alternativesPath,
              const StarDictInfo& info, std::string& error);

    /// The words in the order of the index, each followed by its alternatives.
    const std::vector<Word>& words() const { return _words; }
    /// How many words the .idx holds.
    uint64_t wordCount() const { return _wordCount; }

private:
    bool readWords(const std::string& path, const StarDictInfo& info, std::string& error);
    bool readAlternatives(const std::string& path, std::string& error);

    std::string _text;
    std::string _alternativesText;
    std::vector<Word> _words;
    uint64_t _wordCount = 0;
};

} // namespace teskel
