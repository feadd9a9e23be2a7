// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace teskel
{

/// A temporary file without a name, which is gone when the program is, however that ends.
///
/// The first bytes are held in memory: what is small needs no file. The file lies in the directory
/// that TMPDIR names, else in /tmp. Once something failed, nothing more is written or read, and
/// error() says why.
class ScratchFile
{
public:
    /// Bytes that are held in memory.
    static constexpr size_t heldBytes = size_t{4} << 20;

    ScratchFile() = default;
    ScratchFile(const ScratchFile&) = delete;
    ScratchFile& operator=(const ScratchFile&) = delete;
    ~ScratchFile();

    /// Appends bytes.
    bool append(std::string_view bytes);
    /// Ends the appending: nothing is read before it.
    bool finish();

    /// Reads up to `size` bytes at `offset` into `buffer`. Returns how many there were.
    size_t read(uint64_t offset, char* buffer, size_t size);

    /// A sentence about what went wrong; empty when nothing did.
    const std::string& error() const { return _error; }

private:
    bool writeOut();
    void fail(const char* act, int reason);

    int _descriptor = -1;
    std::string _held; // what is not in the file yet
    std::string _error;
};

} // namespace teskel
