// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

namespace teskel
{

/// Rich text that the article view shows before any dictionary is open, translated.
QString initialText();

} // namespace teskel
