// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace teskel
{

/// The index of a dictd dictionary: one line an entry, its key and the place of its article.
class DictdIndex
{
public:
    struct Line {
        std::string_view key; ///< UTF-8, as dictd compares it
        uint64_t offset = 0;  ///< of the article in the unpacked data, bytes
        uint64_t size = 0;    ///< of the article, bytes
        uint32_t number = 0;  ///< line of the index, from 1
    };

    /// Whether an index begins with these bytes: whether the lines among them are such lines, the
    /// last one left aside when it has no end.
    static bool isBegunBy(std::string_view head);

    /// Reads the file (path in the bytes of the file system). On failure returns false and says
    /// why in `error`.
    bool read(const std::string& path, std::string& error);

    /// The dictionary's entries, in the order of the file.
    const std::vector<Line>& entries() const { return _entries; }
    /// Lines that tell about the dictionary itself, such as "00databaseshort".
    const std::vector<Line>& metadata() const { return _metadata; }

private:
    std::string _text;
    std::vector<Line> _entries;
    std::vector<Line> _metadata;
};

} // namespace teskel
