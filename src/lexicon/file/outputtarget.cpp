// SPDX-License-Identifier: MIT
#include "lexicon/file/outputtarget.h"

#include <QtEndian>

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
constexpr size_t creatorOffset = 64;
constexpr size_t nameBytes = 32;
constexpr size_t recordCountOffset = 76;
constexpr quint32 firstRecordOffset = 78; ///< of its place, with which the record list begins
constexpr size_t headerBytes = 82;
constexpr quint32 recordEntryBytes = 8;
/// What may stand between the record list and the first record, bytes: other programs put two
/// there, and what they want to know of a database.
constexpr quint32 mostBetween = 1U << 16;

bool isThere(const std::string& path, struct stat& status)
{
    return ::stat(path.c_str(), &status) == 0;
}

/// The first bytes of a file, at most as many as its header has.
std::string headerOf(const std::string& path)
{
    std::ifstream file(path, std::ios::binary);
    std::string bytes(headerBytes, '\0');
    file.read(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    bytes.resize(static_cast<size_t>(file.gcount()));
    return bytes;
}

bool hasCreator(std::string_view header)
{
    return header.size() >= creatorOffset && header.substr(creatorOffset).starts_with(creator);
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
    const std::string header = headerOf(path);
    if (header.size() < headerBytes || !hasCreator(header))
        return false;
    const bool isNameEnded =
        std::string_view(header).substr(0, nameBytes).find('\0') != std::string_view::npos;
    const auto records = qFromBigEndian<quint16>(header.data() + recordCountOffset);
    const auto first = qFromBigEndian<quint32>(header.data() + firstRecordOffset);
    const quint32 listEnd = firstRecordOffset + quint32{records} * recordEntryBytes;
    return isNameEnded && records > 0 && first >= listEnd && first - listEnd <= mostBetween;
}

bool mayBeLexicon(const std::string& path)
{
    return hasCreator(headerOf(path));
}

} // namespace teskel::outputtarget
