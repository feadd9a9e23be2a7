// SPDX-License-Identifier: MIT
#pragma once

#include <string>

/// What a command may write, and where. Each function says why not.
namespace teskel::commands
{

/// Whether `output` is the name of a file, not that of the standard output, "-".
bool isFileName(const std::string& output);

/// Whether `output` may be written: not when it is the same file as `other`, which is then called
/// `role` in a sentence.
bool isApart(const std::string& output, const std::string& role, const std::string& other);

/// Whether the standard output may be written: not when it is the same file as `other`, which a
/// sentence calls `name` then.
bool isOutputApart(const std::string& other, const std::string& name);

/// What a command writes. A file that is of another kind was hardly meant.
enum class Writes { Lexicon, AnythingElse };

/// Whether `output` may take the place of what is there, by an exit code: Done when it may; Failed
/// for what cannot be replaced; Usage for a file of another kind, unless `isForced`.
int checkTarget(const std::string& output, Writes kind, bool isForced);

} // namespace teskel::commands
