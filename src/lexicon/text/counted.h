// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace teskel
{

/// A number and what there are so many of, English: "1 entry", "2 entries".
inline std::string counted(uint64_t number, std::string_view one, std::string_view many)
{
    return std::to_string(number).append(" ").append(number == 1 ? one : many);
}

/// The same where the plural has an s: "1 word", "2 words".
inline std::string counted(uint64_t number, std::string_view one)
{
    return counted(number, one, std::string(one) + 's');
}

} // namespace teskel
