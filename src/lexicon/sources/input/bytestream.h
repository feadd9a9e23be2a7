// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>

namespace teskel
{

/// Bytes that come one after the other, from a file or from what unpacks it.
class ByteStream
{
public:
    /// How much read() hands over at most when it has to take something for itself, bytes.
    static constexpr std::size_t stepBytes = 1U << 18;

    virtual ~ByteStream() = default;

    /// Puts up to `size` bytes at `out`. Returns how many, 0 at the end, -1 when reading failed.
    virtual long read(char* out, std::size_t size) = 0;

protected:
    ByteStream() = default;
    ByteStream(const ByteStream&) = delete;
    ByteStream& operator=(const ByteStream&) = delete;
};

} // namespace teskel
