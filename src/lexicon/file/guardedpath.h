// SPDX-License-Identifier: MIT
#pragma once

#include <string>

namespace teskel
{

/// The name of a file that is removed when a signal ends the program. At most four at a time are.
class GuardedPath
{
public:
    explicit GuardedPath(const std::string& path);
    GuardedPath(const GuardedPath&) = delete;
    GuardedPath& operator=(const GuardedPath&) = delete;
    ~GuardedPath();

private:
    char* _place; ///< the path as the signal handler knows it
};

} // namespace teskel
