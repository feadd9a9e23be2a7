// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <optional>

class Dictionary;

namespace teskel
{

/// The part of `text` under which `dictionary` knows a word, or nothing.
///
/// That is the whole text if it is a word of the dictionary, else its longest beginning with which
/// some word begins; the last beginning tried is the empty one.
/// @param text composed text
std::optional<QString> knownPart(Dictionary& dictionary, const QString& text);

} // namespace teskel
