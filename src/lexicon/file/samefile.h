// SPDX-License-Identifier: MIT
#pragma once

#include <string>

namespace teskel
{

/// Whether two paths, in the bytes of the file system, lead to one file: by device and inode, which
/// knows links of both kinds, or where there is no file yet by the absolute paths that they lead
/// to.
bool isSameFile(const std::string& a, const std::string& b);

} // namespace teskel
