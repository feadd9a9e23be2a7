// SPDX-License-Identifier: MIT
#pragma once

#include "dictionary/cursorposition.h"

#include <QString>

#include <optional>

class Dictionary;

/// The texts of a dictionary as strings; its own interface copies Latin-1 into buffers.
///
/// A text that cannot be read, or a name, word or description of more than 511 bytes, is empty.
namespace teskel
{

QString dictionaryName(Dictionary& dictionary);
QString dictionaryDescription(Dictionary& dictionary);
QString randomWord(Dictionary& dictionary);
QString wordAt(Dictionary& dictionary, CursorPosition position);

/// The article at `position`, of any length; nothing if it cannot be read.
std::optional<QString> articleAt(Dictionary& dictionary, CursorPosition position);

} // namespace teskel
