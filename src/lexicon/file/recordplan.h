// SPDX-License-Identifier: MIT
#pragma once

#include "lexicon/entries/lexiconentry.h"

#include <string>
#include <vector>

namespace teskel
{

/// One word record to be: entries `first` to `last` - 1.
struct PlannedRecord {
    size_t first;
    size_t last;
};

/// Divides sorted entries into word records and names the records in the word index.
///
/// Headwords that fold alike are never divided. A record grows up to `recordSize` unpacked bytes,
/// beyond it only for one group of headwords that fold alike.
class RecordPlan
{
public:
    /// `entries` must outlive the plan. When `recordSize` would make more records than a file can
    /// hold, it is doubled until they fit; recordSize() tells.
    RecordPlan(const std::vector<LexiconEntry>& entries, unsigned recordSize);

    const std::vector<PlannedRecord>& records() const { return _records; }
    unsigned recordSize() const { return _recordSize; }

    /// The unpacked bytes of a record: its entries and the empty headword that ends it.
    std::string content(const PlannedRecord& record) const;
    /// Record 0 of the file: the keys of all records and the empty one that ends them.
    std::string index() const;

private:
    void divide();
    std::string_view key(const PlannedRecord& record) const;

    const std::vector<LexiconEntry>& _entries;
    unsigned _recordSize;
    std::vector<PlannedRecord> _records;
};

} // namespace teskel
