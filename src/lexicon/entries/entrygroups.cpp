// SPDX-License-Identifier: MIT
#include "lexicon/entries/entrygroups.h"

#include <utility>

namespace teskel
{

EntryGroups::EntryGroups(EntryStream& entries, Alike alike)
    : _entries(entries)
    , _alike(alike)
{
    readAhead();
}

const std::vector<LexiconEntry>& EntryGroups::next()
{
    _group.clear();
    if (_ahead.text == nullptr)
        return _group;
    std::swap(_arena, _lastArena);
    _arena.clear();
    _ahead = _arena.copy(_ahead);
    _isContinued = std::exchange(_isCut, false);
    size_t bytes = 0;
    do {
        _group.push_back(_ahead);
        bytes += _ahead.packed().size();
        readAhead();
        if (_ahead.text == nullptr || !_alike(_group.front(), _ahead))
            return _group;
    } while (bytes < largestGroup);
    _isCut = true;
    return _group;
}

void EntryGroups::readAhead()
{
    LexiconEntry entry;
    _ahead = _entries.next(entry) ? _arena.copy(entry) : LexiconEntry();
}

} // namespace teskel
