// SPDX-License-Identifier: MIT
#pragma once

#include "lexicon/sources/lexiconsource.h"

#include <memory>
#include <string>

namespace teskel
{

/// The source that `path` names. Null, with the reason in `error`, when no kind of source takes a
/// file of that name.
std::unique_ptr<LexiconSource> sourceForPath(const std::string& path, std::string& error);

/// What can be named as a source, for the help of the program.
std::string sourceHelp();

} // namespace teskel
