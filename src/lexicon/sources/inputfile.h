// SPDX-License-Identifier: MIT
#pragma once

#include <string>

namespace teskel
{

/// Reads a file whole; "-" is the standard input. `path` is in the bytes of the file system. On
/// failure returns false and says why in `error`.
bool readWholeFile(const std::string& path, std::string& content, std::string& error);

} // namespace teskel
