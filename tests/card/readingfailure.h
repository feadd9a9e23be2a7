// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

namespace teskel::test
{

/// Makes every read of the open file `path` fail, as a card does that has lost its contact.
/// @return false when this process does not hold the file open
[[nodiscard]] bool failReadsOf(const QString& path);

} // namespace teskel::test
