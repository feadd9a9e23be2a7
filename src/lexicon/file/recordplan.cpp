// SPDX-License-Identifier: MIT
#include "lexicon/file/recordplan.h"

#include "lexicon/entries/entrygroups.h"

#include <algorithm>

namespace teskel
{

namespace
{

/// Begins a topic dictionary, which the reader refuses.
constexpr char topicMark = '#';
/// Sorts before every headword that begins with the mark, and is no mark.
constexpr std::string_view keyBeforeTopicMark = "!";

std::string keyOf(const LexiconEntry& first, bool isFirstRecord)
{
    const std::string_view headword = first.headword();
    return std::string(isFirstRecord && headword.front() == topicMark ? keyBeforeTopicMark
                                                                      : headword);
}

} // namespace

RecordPlan::RecordPlan(EntryFile& entries, unsigned recordSize)
    : _recordSize(recordSize)
{
    divide(entries);
    while (_records.size() > limits::wordRecords && _recordSize < limits::recordBytes) {
        _recordSize = std::min(2 * _recordSize, limits::recordBytes);
        divide(entries);
    }
}

void RecordPlan::divide(EntryFile& entries)
{
    _records.clear();
    const auto all = entries.read();
    EntryGroups groups(*all, foldsAlike);
    size_t bytes = 0;
    for (const auto* group = &groups.next(); !group->empty(); group = &groups.next()) {
        size_t groupBytes = 0;
        for (const LexiconEntry& entry : *group)
            groupBytes += entry.packed().size();
        if (_records.empty() || bytes + groupBytes + 1 > _recordSize) {
            _records.push_back({0, keyOf(group->front(), _records.empty())});
            bytes = 0;
        }
        _records.back().entries += group->size();
        bytes += groupBytes;
    }
}

std::string RecordPlan::index() const
{
    std::string keys;
    for (const PlannedRecord& record : _records) {
        keys += record.key;
        keys.push_back('\0');
    }
    keys.push_back('\0');
    return keys;
}

} // namespace teskel
