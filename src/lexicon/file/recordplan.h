// SPDX-License-Identifier: MIT
#pragma once

#include "lexicon/entries/entryfile.h"

#include <string>
#include <vector>

namespace teskel
{

/// One word record to be.
struct PlannedRecord {
    uint64_t entries = 0; ///< how many of them
    std::string key;      ///< its name in the word index
};

/// Divides sorted entries into word records and names the records in the word index.
///
/// Headwords that fold alike are never divided. A record grows up to `recordSize` unpacked bytes,
/// beyond it only for one group of headwords that fold alike.
class RecordPlan
{
public:
    /// When `recordSize` would make more records than a file can hold, it is doubled until they
    /// fit; recordSize() tells.
    RecordPlan(EntryFile& entries, unsigned recordSize);

    const std::vector<PlannedRecord>& records() const { return _records; }
    unsigned recordSize() const { return _recordSize; }

    /// Record 0 of the file: the keys of all records and the empty one that ends them.
    std::string index() const;

private:
    void divide(EntryFile& entries);

    unsigned _recordSize;
    std::vector<PlannedRecord> _records;
};

} // namespace teskel
