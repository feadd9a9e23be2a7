// SPDX-License-Identifier: MIT
#pragma once

#include "lexicon/packing/arjtoken.h"

#include <string>
#include <vector>

namespace teskel
{

/// Appends the tokens to `out` in the format of ARJ method 4.
void writeFastestStream(const std::vector<ArjToken>& tokens, std::string& out);

} // namespace teskel
