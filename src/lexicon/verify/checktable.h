// SPDX-License-Identifier: MIT
#pragma once

#include "lexicon/verify/verifiedfile.h"

#include <span>
#include <string_view>

namespace teskel
{

/// A check: a rule of the format, and the function that holds a file to it.
struct Check {
    const char* name;
    const char* rule;  ///< one sentence
    const char* needs; ///< the check that must hold before this one is tried, or null
    /// One of the two: looks at the file once, or at each of its word records.
    bool (*ofFile)(VerifiedFile& file);
    bool (*ofRecord)(VerifiedFile& file, WordRecord& record);
};

/// All checks in the order in which they are made; what a check needs stands before it, and those
/// of the whole file stand before those of records.
std::span<const Check> allChecks();

/// The place in the table of the check with that name, or the size of the table.
size_t placeOfCheck(std::string_view name);

} // namespace teskel
