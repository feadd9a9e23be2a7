// SPDX-License-Identifier: MIT
#pragma once

#include <string>

namespace teskel::fuzz
{

/// Reads the source of the kind `kind` at `path` (bytes of the file system) forwards and reversed,
/// and checks each entry that comes out.
void exerciseSource(const std::string& kind, const std::string& path);

} // namespace teskel::fuzz
