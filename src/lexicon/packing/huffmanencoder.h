// SPDX-License-Identifier: MIT
#pragma once

#include "lexicon/packing/arjtoken.h"

#include <string>
#include <vector>

namespace teskel
{

/// Appends at most 65,535 tokens to `out` as one block in the format of ARJ methods 1 to 3.
/// Writes nothing when there are no tokens.
void writeHuffmanStream(const std::vector<ArjToken>& tokens, std::string& out);

} // namespace teskel
