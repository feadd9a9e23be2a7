// SPDX-License-Identifier: MIT
#pragma once

#include "lexicon/sources/input/bytestream.h"
#include "lexicon/sources/input/textdecoder.h"

namespace teskel
{

/// Text of another encoding as UTF-8.
class DecodedStream : public ByteStream
{
public:
    /// `bytes` goes on behind `begun` and must outlive the stream. The encoding must be one that
    /// TextDecoder knows.
    DecodedStream(ByteStream& bytes, const std::string& encoding, std::string_view begun);

    long read(char* out, std::size_t size) override;

private:
    bool fill();

    ByteStream& _bytes;
    TextDecoder _decoder;
    std::string _input = std::string(stepBytes, '\0');
    std::string _text; ///< decoded, and still to be handed over from `_given` on
    std::size_t _given = 0;
    bool _isEnd = false;
};

} // namespace teskel
