// SPDX-License-Identifier: MIT
#pragma once

#include "dictionary/cursorposition.h"

#include <string>

class QtDictionary;

namespace teskel
{

/// The article at a valid position, Latin-1; empty when it cannot be read.
std::string articleOf(QtDictionary& dictionary, CursorPosition position);

} // namespace teskel
