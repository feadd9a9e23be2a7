// SPDX-License-Identifier: MIT
#pragma once

#include "lexicon/sources/lexiconsource.h"

#include <memory>
#include <string>
#include <vector>

namespace teskel
{

/// The source that `path` names (in the bytes of the file system; "-" is the standard input): of
/// the kind `kindName`, or when that is empty of the kind that its content or else its name tells.
/// Its texts are in `encoding`. Null, with the reason in `error`, when it cannot be opened or is of
/// no kind.
std::unique_ptr<LexiconSource> sourceFor(const std::string& path, const std::string& kindName,
                                         std::string& error, const EncodingOptions& encoding = {});

/// The names of all kinds of source.
std::vector<std::string> sourceKinds();

/// What can be named as a source, for the help of the program.
std::string sourceHelp();

} // namespace teskel
