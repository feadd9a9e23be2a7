// SPDX-License-Identifier: MIT
#pragma once

#include "lexicon/sources/input/bytestream.h"

#include <cstdint>
#include <string>
#include <string_view>

#include <sys/stat.h>

namespace teskel
{

/// A regular file or the standard input, as its bytes are.
class RawFile : public ByteStream
{
public:
    RawFile() = default;
    RawFile(const RawFile&) = delete;
    RawFile& operator=(const RawFile&) = delete;
    ~RawFile() override;

    /// Opens a file (path in the bytes of the file system), or the standard input for "-". Returns
    /// false for what is no regular file, and does not wait for one that is none; reason() says
    /// why.
    bool open(const std::string& path);

    /// The bytes that come next, at most `size`; they are still to be read.
    std::string_view head(std::size_t size);
    long read(char* out, std::size_t size) override;

    /// Reads `size` bytes at `offset`, wherever read() stands; false when they are not all there.
    bool readAt(uint64_t offset, uint64_t size, std::string& out) const;

    /// Whether the file has the size and the times of change that it had when it was opened.
    bool isUnchanged() const;
    /// Why opening or reading failed; empty when it did not.
    const std::string& reason() const { return _reason; }

private:
    long readDescriptor(char* out, std::size_t size);

    int _descriptor = -1;
    struct stat _opened = {};
    std::string _ahead; ///< read already, not handed over yet
    std::string _reason;
};

} // namespace teskel
