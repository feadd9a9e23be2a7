// SPDX-License-Identifier: MIT
#include "dictionary/wordindex.h"

#include "dictionary/latin1fold.h"

#include <algorithm>
#include <cstring>

namespace teskel
{

void WordIndex::clear()
{
    _keys.clear();
    _offsets.clear();
    _isCut = false;
    _isEnded = false;
    _isAscending = false;
    _isLoaded = false;
}

void WordIndex::parse(const char* data, std::size_t size, std::size_t wordRecordCount)
{
    clear();
    std::size_t end = 0;
    while (end < size && data[end] != '\0' && _offsets.size() <= wordRecordCount) {
        _offsets.push_back(static_cast<quint32>(end));
        const void* terminator = std::memchr(data + end, 0, size - end);
        _isCut = terminator == nullptr;
        end = terminator ? static_cast<std::size_t>(static_cast<const char*>(terminator) - data) + 1
                         : size;
    }
    _isEnded = end < size && data[end] == '\0';
    // The copy ends with a NUL of its own, also where the last key has none.
    _keys = QByteArray(data, static_cast<qsizetype>(end));
    _isAscending = std::is_sorted(_offsets.begin(), _offsets.end(), [this](quint32 a, quint32 b) {
        return foldedCompare(_keys.constData() + a, _keys.constData() + b) < 0;
    });
    _isLoaded = true;
}

std::size_t WordIndex::recordFor(const char* word, std::size_t length) const
{
    const auto isBelow = [&](quint32 offset) {
        return foldedCompare(_keys.constData() + offset, word, length) < 0;
    };
    const auto stop = _isAscending ? std::partition_point(_offsets.begin(), _offsets.end(), isBelow)
                                   : std::find_if_not(_offsets.begin(), _offsets.end(), isBelow);
    const auto below = static_cast<std::size_t>(stop - _offsets.begin());
    return below == 0 ? 0 : below - 1;
}

} // namespace teskel
