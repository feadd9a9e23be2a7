// SPDX-License-Identifier: MIT
#include "lexicon/sources/siblingfile.h"

#include <unistd.h>

namespace teskel::siblingfile
{

namespace
{
constexpr std::string_view packerSuffixes[] = {".dz", ".gz", ".xz", ".zst"};
} // namespace

std::string_view withoutPackerSuffix(std::string_view path)
{
    for (const std::string_view suffix : packerSuffixes) {
        if (path.ends_with(suffix))
            return path.substr(0, path.size() - suffix.size());
    }
    return path;
}

std::string_view base(std::string_view path, std::initializer_list<std::string_view> suffixes)
{
    path = withoutPackerSuffix(path);
    for (const std::string_view suffix : suffixes) {
        if (path.ends_with(suffix))
            return path.substr(0, path.size() - suffix.size());
    }
    return {};
}

std::string find(std::string_view base, std::string_view suffix)
{
    const std::string plain = std::string(base) + std::string(suffix);
    for (const std::string_view packer : packerSuffixes) {
        std::string packed = plain + std::string(packer);
        if (::access(packed.c_str(), F_OK) == 0)
            return packed;
    }
    return ::access(plain.c_str(), F_OK) == 0 ? plain : std::string();
}

} // namespace teskel::siblingfile
