// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string>

struct gzFile_s;

namespace teskel
{

/// Reads an input: as it is, or unpacked when gzip or dictzip packed it.
///
/// What is wrong is told in `error` by the functions that return false.
class InputFile
{
public:
    InputFile() = default;
    InputFile(const InputFile&) = delete;
    InputFile& operator=(const InputFile&) = delete;
    ~InputFile();

    /// Opens a file, once (path in the bytes of the file system), or the standard input for "-".
    bool open(const std::string& path, std::string& error);

    /// Whether what is read is unpacked on the way.
    bool isPacked() const { return _isPacked; }

    /// Reads everything. Nothing else may have been read before.
    bool readAll(std::string& content, std::string& error);

    /// Reads `size` bytes at `offset` of the unpacked data; fails when they are not all there. To
    /// go back to an earlier offset is to read from the beginning.
    bool read(uint64_t offset, uint64_t size, std::string& out, std::string& error);

private:
    bool readStep(std::string& out);
    bool fillWindow(uint64_t offset, uint64_t size);

    std::string _path;
    gzFile_s* _file = nullptr;
    bool _isPacked = false;
    std::string _window;       ///< the piece of the data around the last offset
    uint64_t _windowBegin = 0; ///< its place in the unpacked data, bytes
};

} // namespace teskel
