// SPDX-License-Identifier: MIT
#include "lexicon/sources/siblingfile.h"

#include <utility>

#include <unistd.h>

using namespace std::string_view_literals;

namespace teskel::siblingfile
{

namespace
{
constexpr std::string_view packerSuffixes[] = {".dz", ".gz", ".xz", ".zst"};

bool isThere(const std::string& path)
{
    return ::access(path.c_str(), F_OK) == 0;
}
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
        if (isThere(packed))
            return packed;
    }
    return isThere(plain) ? plain : std::string();
}

std::vector<std::string> family(const std::string& path)
{
    const std::initializer_list<std::string_view> suffixes = {".index"sv, ".dict"sv, ".ifo"sv,
                                                              ".idx"sv, ".syn"sv};
    const std::string_view common = base(path, suffixes);
    std::vector<std::string> files = {path};
    for (const std::string_view suffix : suffixes) {
        const std::string plain = std::string(common.empty() ? path : common) + std::string(suffix);
        if (plain != path)
            files.push_back(plain);
        for (const std::string_view packer : packerSuffixes) {
            if (std::string file = plain + std::string(packer); file != path)
                files.push_back(std::move(file));
        }
    }
    return files;
}

} // namespace teskel::siblingfile
