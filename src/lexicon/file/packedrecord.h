// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string>

namespace teskel
{

/// A packed record as it stands in the file.
class PackedRecord
{
public:
    /// `bytes` must outlive the object.
    explicit PackedRecord(const std::string& bytes);

    /// What its header says; 0 when there is no valid header.
    unsigned method() const { return _method; }
    uint32_t unpackedSize() const { return _unpackedSize; }

    /// Unpacks the record and checks its checksum. On failure returns false and says why.
    bool unpack(std::string& out, std::string& error) const;

private:
    const std::string& _bytes;
    unsigned _method = 0;
    uint32_t _unpackedSize = 0;
};

} // namespace teskel
