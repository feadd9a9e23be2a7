// SPDX-License-Identifier: MIT
#include "lexicon/file/recordplan.h"

#include <algorithm>

namespace teskel
{

namespace
{

/// Begins a topic dictionary, which the reader refuses.
constexpr char topicMark = '#';
/// Sorts before every headword that begins with the mark, and is no mark.
constexpr std::string_view keyBeforeTopicMark = "!";

} // namespace

RecordPlan::RecordPlan(const std::vector<LexiconEntry>& entries, unsigned recordSize)
    : _entries(entries)
    , _recordSize(recordSize)
{
    divide();
    while (_records.size() > limits::wordRecords && _recordSize < limits::recordBytes) {
        _recordSize = std::min(2 * _recordSize, limits::recordBytes);
        divide();
    }
}

void RecordPlan::divide()
{
    _records.clear();
    size_t bytes = 0;
    for (size_t first = 0; first < _entries.size();) {
        size_t last = first;
        size_t groupBytes = 0;
        do {
            groupBytes += _entries[last++].packed().size();
        } while (last < _entries.size() && foldsAlike(_entries[first], _entries[last]));
        if (_records.empty() || bytes + groupBytes + 1 > _recordSize) {
            _records.push_back({first, last});
            bytes = 0;
        }
        _records.back().last = last;
        bytes += groupBytes;
        first = last;
    }
}

std::string RecordPlan::content(const PlannedRecord& record) const
{
    std::string bytes;
    bytes.reserve(_recordSize);
    for (size_t i = record.first; i < record.last; ++i)
        bytes += _entries[i].packed();
    bytes.push_back('\0');
    return bytes;
}

std::string_view RecordPlan::key(const PlannedRecord& record) const
{
    const std::string_view headword = _entries[record.first].headword();
    if (record.first == 0 && headword.front() == topicMark)
        return keyBeforeTopicMark;
    return headword;
}

std::string RecordPlan::index() const
{
    std::string keys;
    for (const PlannedRecord& record : _records) {
        keys += key(record);
        keys.push_back('\0');
    }
    keys.push_back('\0');
    return keys;
}

} // namespace teskel
