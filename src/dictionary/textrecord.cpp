// SPDX-License-Identifier: MIT
#include "dictionary/textrecord.h"

#include <algorithm>
#include <cstring>

namespace teskel
{

namespace
{
constexpr std::size_t usualEntries = 64; // a record of the usual size has some 47
}

quint16 TextRecord::count() const
{
    findEntries();
    return static_cast<quint16>(_offsets.size());
}

const char* TextRecord::word(quint16 entry) const
{
    findEntries();
    return text() + _offsets[entry];
}

quint32 TextRecord::end() const
{
    findEntries();
    return _end;
}

quint16 TextRecord::firstNotBelow(const FoldedWord& word) const
{
    findEntries();
    const auto isBelow = [&](quint16 offset) { return word.isAbove(text() + offset); };
    const auto found = _isAscending
                           ? std::partition_point(_offsets.begin(), _offsets.end(), isBelow)
                           : std::find_if_not(_offsets.begin(), _offsets.end(), isBelow);
    return static_cast<quint16>(found - _offsets.begin());
}

void TextRecord::findEntries() const
{
    if (_isParsed)
        return;
    _isParsed = true;
    _isAscending = true;
    _offsets.reserve(usualEntries);
    const char* start = text();
    const char* end = start + size();
    const char* previous = start;
    FoldedHead previousHead;
    const char* headword = start;
    while (headword < end && *headword != '\0') {
        _offsets.push_back(static_cast<quint16>(headword - start));
        const FoldedHead head(headword);
        if (headword != start && foldedCompare(previous, previousHead, headword, head) > 0)
            _isAscending = false;
        previous = headword;
        previousHead = head;
        const char* article = headword + std::strlen(headword) + 1;
        headword = article + std::strlen(article) + 1;
    }
    _end = static_cast<quint32>(headword - start);
}

} // namespace teskel
