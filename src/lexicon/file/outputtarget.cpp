// SPDX-License-Identifier: MIT
#include "lexicon/file/outputtarget.h"

#include <cerrno>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <string_view>
#include <system_error>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace teskel::outputtarget
{

namespace
{

namespace fs = std::filesystem;

constexpr int mostLinks = 40; // as many as Linux follows
constexpr std::string_view creator = "TSKL";
constexpr std::streamoff creatorOffset = 64;

bool isThere(const std::string& path, struct stat& status)
{
    return ::stat(path.c_str(), &status) == 0;
}

} // namespace

bool follow(const std::string& path, std::string& real, std::string& reason)
{
    fs::path place(path);
    std::error_code error;
    for (int links = 0; fs::is_symlink(fs::symlink_status(place, error)); ++links) {
        if (links == mostLinks) {
            reason = std::strerror(ELOOP);
            return false;
        }
        const fs::path next = fs::read_symlink(place, error);
        if (error) {
            reason = error.message();
            return false;
        }
        place = place.parent_path() / next;
    }
    real = place.string();
    return true;
}

bool isReplaceable(const std::string& path, std::string& reason)
{
    struct stat status = {};
    if (!isThere(path, status)) {
        reason = errno == ENOENT ? "" : std::strerror(errno);
        return reason.empty();
    }
    if (S_ISDIR(status.st_mode))
        reason = std::strerror(EISDIR);
    else if (!S_ISREG(status.st_mode))
        reason = "it is no regular file";
    else if ((status.st_mode & (S_IWUSR | S_IWGRP | S_IWOTH)) == 0)
        reason = "it is read-only";
    else if (::faccessat(AT_FDCWD, path.c_str(), W_OK, AT_EACCESS) != 0)
        reason = std::strerror(errno);
    else
        return true;
    return false;
}

bool holdsAnything(const std::string& path)
{
    struct stat status = {};
    return isThere(path, status) && S_ISREG(status.st_mode) && status.st_size > 0;
}

bool isLexicon(const std::string& path)
{
    std::ifstream file(path, std::ios::binary);
    std::string bytes(creator.size(), '\0');
    file.seekg(creatorOffset);
    file.read(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    return file && bytes == creator;
}

} // namespace teskel::outputtarget
