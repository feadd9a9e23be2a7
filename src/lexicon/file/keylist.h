// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace teskel
{

/// All keys of a word index, one by one, for those who look at the index itself.
class KeyList
{
public:
    KeyList() = default;
    /// @param bytes  of the index record
    explicit KeyList(std::string_view bytes);

    /// Keys that are ended by their NUL.
    [[nodiscard]] std::size_t count() const { return _offsets.size(); }
    [[nodiscard]] const char* key(std::size_t number) const
    {
        return _bytes.c_str() + _offsets[number];
    }
    /// Whether an empty key ends the list.
    [[nodiscard]] bool isEnded() const { return _isEnded; }
    /// Whether this is the index of a topic dictionary, a kind that is not supported.
    [[nodiscard]] bool isTopicIndex() const { return _isTopicIndex; }

private:
    std::string _bytes; ///< of the keys, with their NULs
    std::vector<std::uint32_t> _offsets;
    bool _isEnded = false;
    bool _isTopicIndex = false;
};

} // namespace teskel
