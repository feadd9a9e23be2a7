// SPDX-License-Identifier: MIT
#include "lexicon/file/samefile.h"

#include "lexicon/file/outputtarget.h"

#include <filesystem>
#include <system_error>

namespace teskel
{

namespace
{

namespace fs = std::filesystem;

/// Empty when the path cannot be followed.
fs::path absolutePath(const std::string& path)
{
    std::error_code error;
    std::string real;
    std::string reason;
    if (!outputtarget::follow(path, real, reason))
        return {};
    const fs::path absolute = fs::absolute(real, error);
    return error ? fs::path() : fs::weakly_canonical(absolute, error);
}

} // namespace

bool isSameFile(const std::string& a, const std::string& b)
{
    std::error_code error;
    if (fs::equivalent(a, b, error))
        return true;
    const fs::path path = absolutePath(a);
    return !path.empty() && path == absolutePath(b);
}

} // namespace teskel
