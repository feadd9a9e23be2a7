// SPDX-License-Identifier: MIT
#pragma once

#include <QFile>

#include <array>
#include <cstdint>
#include <string>
#include <vector>

namespace teskel
{

/// Reads pieces of the article data of a dictd dictionary: plain, packed by dictzip, or by gzip.
///
/// dictzip's chunks are unpacked one by one as they are asked for; a few are kept, so that reading
/// in ascending order unpacks each chunk about once. Plain gzip data is unpacked whole.
class DictzipReader
{
public:
    /// Opens the file (path in the bytes of the file system). On failure returns false and says
    /// why in `error`.
    bool open(const std::string& path, std::string& error);

    /// Reads `size` bytes at `offset` of the unpacked data. Fails when they are not all there.
    bool read(uint64_t offset, uint64_t size, std::string& out, std::string& error);

private:
    struct Chunk {
        uint64_t number = UINT64_MAX;
        std::string bytes;
    };

    bool openPacked(std::string& error);
    bool readChunkTable(const std::string& extra);
    bool unpackAll(const std::string& path, std::string& error);
    const std::string* chunk(uint64_t number);
    bool readChunks(uint64_t offset, uint64_t size, std::string& out);

    QFile _file;
    std::string _path;
    bool _isPacked = false;
    uint64_t _chunkBytes = 0;            ///< unpacked bytes of each chunk but the last
    std::vector<uint64_t> _chunkOffsets; ///< in the file; one more than there are chunks
    std::array<Chunk, 4> _kept;
    size_t _oldest = 0;
    std::string _whole; ///< all data, of plain gzip only
};

} // namespace teskel
