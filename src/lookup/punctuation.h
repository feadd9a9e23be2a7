// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

namespace teskel
{

/// Removes punctuation and white space from both ends of `text`; the inside is never touched.
QString withoutOuterPunctuation(const QString& text);

} // namespace teskel
