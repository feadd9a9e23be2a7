// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace teskel
{

/// What the .ifo file of a StarDict dictionary says: lines "key=value" below a first line of its
/// own. (Format: "Format for StarDict dictionary files", which comes with StarDict 3.)
struct StarDictInfo {
    std::string name;         ///< "bookname", UTF-8
    std::string typeSequence; ///< "sametypesequence"; empty when each article says its types
    std::optional<uint64_t> wordCount;
    std::optional<uint64_t> indexBytes; ///< of the index, unpacked
    unsigned offsetBytes = 4;           ///< of an offset in the index

    /// Whether such a file begins with these bytes.
    static bool isBegunBy(std::string_view head);

    /// Reads the file (path in the bytes of the file system). On failure returns false and says
    /// why in `error`.
    bool read(const std::string& path, std::string& error);

private:
    bool take(std::string_view key, std::string_view value, std::string& error);
};

} // namespace teskel
