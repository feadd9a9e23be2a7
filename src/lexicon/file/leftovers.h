// SPDX-License-Identifier: MIT
#pragma once

#include <string>

/// Outputs that are not complete, as they stand beside their target while they have a name.
namespace teskel::leftovers
{

/// The name of one that this process writes for `target`.
std::string pathFor(const std::string& target);

/// Marks an open file as one that is still written, as long as this process lives.
bool hold(int descriptor);

/// Removes those of `target` that processes left which were killed.
void remove(const std::string& target);

} // namespace teskel::leftovers
