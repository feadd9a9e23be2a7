// SPDX-License-Identifier: MIT
#pragma once

#include "lexicon/entries/entrysorter.h"
#include "lexicon/sources/input/inputfile.h"
#include "lexicon/sources/stardict/stardictinfo.h"

#include <cstdint>
#include <memory>
#include <string>

namespace teskel
{

/// The words of a StarDict dictionary and the places of their articles: what its .idx and .syn
/// hold.
class StarDictIndex
{
public:
    struct Word {
        std::string key;            ///< UTF-8
        uint64_t offset = 0;        ///< of the article in the unpacked data, bytes
        uint32_t size = 0;          ///< of the article, bytes
        uint32_t place = 0;         ///< of the word in its file, from 1
        bool isAlternative = false; ///< comes from the .syn
    };

    /// Opens the files (paths in the bytes of the file system); an empty `alternativesPath` is
    /// none. On failure returns false and says why in `error`, as next() does.
    bool open(const std::string& path, const std::string& alternativesPath,
              const StarDictInfo& info, std::string& error);

    /// Reads the next word in the order of the .idx, each followed by its alternatives; `isEnd`
    /// tells that there is none. Both files are held to their sizes.
    bool next(Word& word, bool& isEnd, std::string& error);

    /// How many words of the .idx were read.
    uint32_t wordCount() const { return _wordCount; }

private:
    bool readAlternatives(const std::string& path, std::string& error);
    void readAlternative();
    bool readWord(InputFile& file, size_t numberBytes, Word& word, bool& isEnd, std::string& error);
    bool checkEnd(std::string& error) const;

    InputFile _file;
    StarDictInfo _info;
    std::string _alternativesName;
    std::unique_ptr<EntrySorter> _alternatives;
    std::unique_ptr<EntryStream> _byTarget;
    Word _alternative;            ///< the next one
    uint64_t _target = 0;         ///< number of the word that it stands for, from 0
    bool _hasAlternative = false; ///< whether there is a next one
    Word _word;                   ///< the last one of the .idx
    uint32_t _wordCount = 0;
    uint64_t _bytesRead = 0;
    std::string _numbers; ///< behind the word that was read last
};

} // namespace teskel
