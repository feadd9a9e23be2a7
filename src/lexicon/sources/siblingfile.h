// SPDX-License-Identifier: MIT
#pragma once

#include <initializer_list>
#include <string>
#include <string_view>
#include <vector>

/// Dictionaries that consist of several files, whose names differ in their ends. Paths are in the
/// bytes of the file system.
namespace teskel::siblingfile
{

/// The path without the ".gz", ".dz", ".xz" or ".zst" at its end.
std::string_view withoutPackerSuffix(std::string_view path);

/// The path without a packer's suffix and without the first of `suffixes` that it ends with; empty
/// when it ends with none.
std::string_view base(std::string_view path, std::initializer_list<std::string_view> suffixes);

/// The file whose name is `base` and `suffix`, or which has a packer's suffix behind that; empty
/// when there is none. A packed one comes first.
std::string find(std::string_view base, std::string_view suffix);

/// All names of files that may be of one dictionary with `path`, itself included and the first,
/// whether there are such files or not.
std::vector<std::string> family(const std::string& path);

} // namespace teskel::siblingfile
