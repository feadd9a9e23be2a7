// SPDX-License-Identifier: MIT
#pragma once

#include <string>

namespace teskel
{
class FileStates;
} // namespace teskel

/// Outputs that are not complete, as they stand beside their target while they have a name:
/// ".NAME.teskel-PROCESS-DIGITS", where the digits are random ones and a checksum of all the rest.
///
/// Where the file system keeps attributes, the file has its name as one, so that not even a copy is
/// taken for it.
namespace teskel::leftovers
{

/// A name that nothing else has for one that this process writes for `target`.
std::string newPath(const std::string& target);

/// Marks an open file, which has or is to have a name by newPath(), as one that is still written.
/// The mark says so as long as this process lives, and whose it was afterwards.
void hold(int descriptor, const std::string& path);

/// Takes the mark away from a file that is complete.
void release(int descriptor);

/// Removes those of `target`, or of the file that it leads to as a link, which processes left that
/// were killed. What may be anything else stays, and so does each of `read`.
void remove(const std::string& target, const FileStates& read);

} // namespace teskel::leftovers
