// SPDX-License-Identifier: MIT
#pragma once

#include "lexicon/file/lexiconreader.h"

#include <cstdint>
#include <string>

namespace teskel
{

/// The figures of a finished lexicon.
struct LexiconFacts {
    std::string name;
    std::string description; ///< rich text
    uint64_t headwords = 0;
    uint64_t records = 0;
    std::string methods;      ///< of the word records, such as "1" or "1, 4"
    uint64_t indexBytes = 0;  ///< of the word index
    uint64_t packedBytes = 0; ///< of the word records in the file
    uint64_t textBytes = 0;   ///< of the word records unpacked
    uint64_t fileBytes = 0;
    /// Whether an article or the description has letter references; else the texts are plain
    /// Latin-1.
    bool hasLetterReferences = false;

    /// Reads the whole lexicon, which `reader` has open. On failure `error` says why.
    LexiconReader::Status gather(LexiconReader& reader, const std::string& path,
                                 std::string& error);

private:
    bool gatherRecords(const std::string& path, std::string& error);
};

} // namespace teskel
