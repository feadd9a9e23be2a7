// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace teskel
{

/// A file without a name for what does not fit into memory. It is gone with this object, and with
/// the program however that ends. It stands where temporary files stand ($TMPDIR, else /tmp).
class ScratchFile
{
public:
    ScratchFile() = default;
    ScratchFile(const ScratchFile&) = delete;
    ScratchFile& operator=(const ScratchFile&) = delete;
    ~ScratchFile();

    /// Makes the file. On failure returns false and says why in `error`, as append() does.
    bool open(std::string& error);
    bool append(std::string_view bytes, std::string& error);
    /// Reads `size` bytes at `offset`; false when they are not all there.
    bool read(uint64_t offset, uint64_t size, std::string& out) const;

private:
    int _descriptor = -1;
};

} // namespace teskel
