// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <vector>

namespace teskel
{

class PendingFile;

/// Commits files that are worth nothing without each other, such as an index and its articles.
///
/// All bytes are made to last before the first file takes its name. The last of them is the one by
/// which the others are found: what was there under its name is removed before and put back when
/// something fails, as are the others that had been replaced. So a program that is killed leaves
/// files that nobody takes for a whole, never new ones under an old index. On failure returns false
/// and says why in `error`.
bool commitTogether(const std::vector<PendingFile*>& files, std::string& error);

} // namespace teskel
