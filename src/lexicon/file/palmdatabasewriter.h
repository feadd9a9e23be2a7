// SPDX-License-Identifier: MIT
#pragma once

#include "lexicon/file/pendingfile.h"

#include <QByteArray>

#include <cstdint>
#include <string_view>
#include <vector>

namespace teskel
{

/// Writes a Palm database record by record.
///
/// Dates are fixed, so that equal records give equal files. It is enough to look at what finish()
/// returns.
class PalmDatabaseWriter
{
public:
    /// Begins a database of `recordCount` records in `file`, which must outlive the writer. `name`
    /// is Latin-1 and cut to 31 bytes.
    PalmDatabaseWriter(PendingFile& file, std::string_view name, uint16_t recordCount);

    void add(std::string_view record);

    /// Completes the database once all records were added. False when it would be larger than a
    /// Palm database can be; whether the file took its bytes, the file itself tells.
    bool finish();

    /// Bytes written so far.
    uint64_t size() const { return _size; }

private:
    void write(std::string_view bytes);
    QByteArray recordList() const;

    PendingFile& _file;
    uint16_t _recordCount;
    std::vector<uint32_t> _offsets;
    uint64_t _size = 0;
};

} // namespace teskel
