// SPDX-License-Identifier: MIT
#pragma once

#include "lexicon/sources/input/inputfile.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace teskel
{

/// The index of a dictd dictionary: one line an entry, its key and the place of its article.
class DictdIndex
{
public:
    struct Line {
        std::string_view key; ///< UTF-8, as dictd compares it; until the next line is read
        uint64_t offset = 0;  ///< of the article in the unpacked data, bytes
        uint64_t size = 0;    ///< of the article, bytes
        uint32_t number = 0;  ///< line of the index, from 1

        /// Whether the line tells about the dictionary itself, as "00databaseshort" does.
        bool isMetadata() const;
    };

    /// Whether an index begins with these bytes: whether the lines among them are such lines, the
    /// last one left aside when it has no end.
    static bool isBegunBy(std::string_view head);

    /// Opens the file (path in the bytes of the file system). On failure returns false and says
    /// why in `error`, as next() does.
    bool open(const std::string& path, std::string& error);

    /// Reads the next line; `isEnd` tells that there is none.
    bool next(Line& line, bool& isEnd, std::string& error);

private:
    InputFile _file;
    std::string _text;
    uint32_t _number = 0;
};

} // namespace teskel
