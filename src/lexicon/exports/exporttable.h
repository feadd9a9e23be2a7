// SPDX-License-Identifier: MIT
#pragma once

#include "lexicon/exports/dictionaryexport.h"

#include <memory>
#include <string>
#include <vector>

namespace teskel
{

/// The names of the programs for which a lexicon can be written.
std::vector<std::string> exportNames();

/// Begins an export for the named program; null when there is none of that name.
/// @param base   path of the files without their suffixes
/// @param title  plain UTF-8 on one line
std::unique_ptr<DictionaryExport> makeExport(const std::string& name, const std::string& base,
                                             const std::string& title);

} // namespace teskel
