// SPDX-License-Identifier: MIT
#pragma once

#include "lexicon/sources/input/bytestream.h"

#include <string>
#include <string_view>

#include <zlib.h>

namespace teskel
{

/// Unpacks what gzip or dictzip packed (RFC 1952), several members one after the other too, and
/// holds each member to its checksum.
class GzipStream : public ByteStream
{
public:
    /// Whether such data begins with these bytes.
    static bool isBegunBy(std::string_view head);

    /// `packed` stands at its beginning and must outlive the stream.
    explicit GzipStream(ByteStream& packed);
    GzipStream(const GzipStream&) = delete;
    GzipStream& operator=(const GzipStream&) = delete;
    ~GzipStream() override;

    long read(char* out, std::size_t size) override;

private:
    bool refill();
    bool beginNextMember();

    ByteStream& _packed;
    z_stream _inflate = {};
    bool _isReady = false;
    bool _isMemberDone = false;
    std::string _input = std::string(stepBytes, '\0');
};

} // namespace teskel
