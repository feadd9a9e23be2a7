// SPDX-License-Identifier: MIT
#pragma once

#include <QFile>

#include <cstdint>
#include <string>
#include <vector>

namespace teskel
{

/// The raw container of a dictionary file, read without trust in what it says.
class PalmFile
{
public:
    /// Opens the file and reads header and record list as far as they are there. False, with the
    /// reason in `error`, only when the file cannot be read at all.
    bool open(const std::string& path, std::string& error);

    uint64_t size() const { return _size; }
    /// Whether the file holds the whole header, and the whole record list.
    bool hasHeader() const { return _hasHeader; }
    bool hasRecordList() const { return _hasRecordList; }
    const std::string& creator() const { return _creator; }
    unsigned recordCount() const { return _recordCount; }
    const std::vector<uint32_t>& offsets() const { return _offsets; }
    /// Where a record ends: at the next one, or at the end of the file.
    uint64_t endOf(unsigned record) const;

    /// The bytes of a record; empty when its offsets are wrong or it cannot be read.
    std::string record(unsigned index);

    static constexpr uint64_t headerBytes = 78;
    static constexpr uint64_t listEntryBytes = 8;

private:
    QFile _file;
    uint64_t _size = 0;
    bool _hasHeader = false;
    bool _hasRecordList = false;
    std::string _creator;
    unsigned _recordCount = 0;
    std::vector<uint32_t> _offsets;
};

} // namespace teskel
