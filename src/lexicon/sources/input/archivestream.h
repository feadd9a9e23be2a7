// SPDX-License-Identifier: MIT
#pragma once

#include "lexicon/sources/input/bytestream.h"

#include <string>
#include <string_view>

struct archive;

namespace teskel
{

struct ArchiveLibrary;

/// Unpacks what xz or zstd packed, through libarchive. (gzip is left to zlib: libarchive does not
/// look at its checksums.)
class ArchiveStream : public ByteStream
{
public:
    /// How many bytes isBegunBy() wants to see.
    static constexpr std::size_t magicBytes = 6;
    /// Whether such data begins with these bytes.
    static bool isBegunBy(std::string_view head);

    /// `packed` stands at its beginning and must outlive the stream.
    ArchiveStream(ByteStream& packed, const ArchiveLibrary& library);
    ArchiveStream(const ArchiveStream&) = delete;
    ArchiveStream& operator=(const ArchiveStream&) = delete;
    ~ArchiveStream() override;

    long read(char* out, std::size_t size) override;

private:
    /// What libarchive calls for more packed bytes.
    static long handOver(archive* reader, void* self, const void** bytes);

    const ArchiveLibrary& _library;
    ByteStream& _packed;
    archive* _reader = nullptr;
    bool _isReady = false;
    bool _isEmpty = false; ///< the data unpack to nothing
    std::string _input = std::string(stepBytes, '\0');
};

} // namespace teskel
