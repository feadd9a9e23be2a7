// SPDX-License-Identifier: MIT
#pragma once

#include <QFile>

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace teskel
{

/// Writes a Palm database record by record.
///
/// Dates are fixed, so that equal records give equal files. Errors are remembered: it is enough to
/// look at what finish() returns.
class PalmDatabaseWriter
{
public:
    /// Creates `path` (bytes of the file system), which must not exist yet, for `recordCount`
    /// records. `name` is Latin-1 and cut to 31 bytes.
    PalmDatabaseWriter(const std::string& path, std::string_view name, uint16_t recordCount);

    void add(std::string_view record);

    /// Completes the file once all records were added. Returns an empty text, or why the file could
    /// not be written.
    std::string finish();

    /// Bytes written so far.
    uint64_t size() const { return _size; }

private:
    void write(std::string_view bytes);
    std::string recordList() const;

    QFile _file;
    uint16_t _recordCount;
    std::vector<uint32_t> _offsets;
    uint64_t _size = 0;
    std::string _error;
};

} // namespace teskel
