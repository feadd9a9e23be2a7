// SPDX-License-Identifier: MIT
#include "lexicon/file/lexiconcursor.h"

#include "dictionary/latin1fold.h"
#include "lexicon/text/utf8.h"

namespace teskel
{

bool LexiconCursor::fetchEntry(Entry& entry, bool& isEnd, std::string& error)
{
    while (_place == _entries.size() && _record < _reader.recordCount()) {
        _entries.clear();
        _place = 0;
        const auto take = [this](std::string_view headword, std::string_view article) {
            _entries.emplace_back(headword, article);
            return true;
        };
        if (_reader.visitRecord(_record++, take, error) != LexiconReader::Status::Ok)
            return false;
    }
    isEnd = _place == _entries.size();
    if (!isEnd)
        entry = _entries[_place];
    return true;
}

bool LexiconCursor::next(std::string& error)
{
    std::vector<Entry> group;
    Entry entry;
    for (bool isEnd = false;; ++_place) {
        if (!fetchEntry(entry, isEnd, error))
            return false;
        if (isEnd || (!group.empty() &&
                      foldedCompare(group.front().first.c_str(), entry.first.c_str()) != 0))
            break;
        group.push_back(entry);
    }
    if (!group.empty() && !_group.empty() &&
        foldedCompare(headword().c_str(), group.front().first.c_str()) > 0) {
        error = "its headwords are not in order: \"" + utf8::fromLatin1(group.front().first) +
                "\" stands behind \"" + utf8::fromLatin1(headword()) + '"';
        return false;
    }
    _group = std::move(group);
    return true;
}

} // namespace teskel
