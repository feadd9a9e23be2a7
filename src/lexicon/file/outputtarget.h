// SPDX-License-Identifier: MIT
#pragma once

#include <string>

/// The file whose place an output is to take. Paths are in the bytes of the file system.
namespace teskel::outputtarget
{

/// Where a write to `path` ends up: where the symbolic links lead that the path ends with, be there
/// a file or not. False, with the reason in `reason`, when they lead nowhere.
bool follow(const std::string& path, std::string& real, std::string& reason);

/// Whether a file may take the place of what `path` leads to, if that is anything: of a regular
/// file that may be written. One that nobody may write may not be replaced by root either. When it
/// may not, `reason` says why.
bool isReplaceable(const std::string& path, std::string& reason);

/// Whether there is a file that holds anything.
bool holdsAnything(const std::string& path);

/// Whether there is a file that is a lexicon by its header, sound or not in what follows.
bool isLexicon(const std::string& path);

/// Whether there is a file that says in its header that it is a lexicon, but for which anything in
/// it may be damaged.
bool mayBeLexicon(const std::string& path);

} // namespace teskel::outputtarget
