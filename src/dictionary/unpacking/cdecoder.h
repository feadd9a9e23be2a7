// SPDX-License-Identifier: MIT
#pragma once

#include "dictionary/unpacking/cbitbuffer.h"
#include "dictionary/unpacking/memberstatus.h"

/// Decodes the packed bytes of one ARJ member and checks them.
class CDecoder
{
public:
    /// Decodes `input` into `output`, from the output's start; header and buffers are borrowed.
    ///
    /// Output ends where the member or `output` ends, and an output in read mode takes nothing;
    /// packed bytes are fetched in either mode. True when the checksum of what was written is the
    /// header's. A method other than 1 to 4 writes nothing.
    bool Decompress(CFileHeader* header, CBuffer* input, CBuffer* output);

    /// Why the last Decompress() returned what it did.
    [[nodiscard]] teskel::MemberStatus status() const { return _status; }

private:
    CBitBuffer _bits;
    teskel::MemberStatus _status = teskel::MemberStatus::Ok;
};
