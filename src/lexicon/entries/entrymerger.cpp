// SPDX-License-Identifier: MIT
#include "lexicon/entries/entrymerger.h"

#include "lexicon/text/sensenumbers.h"

#include <algorithm>
#include <unordered_set>

namespace teskel
{

std::vector<LexiconEntry> EntryMerger::merge(std::vector<LexiconEntry> entries)
{
    std::sort(entries.begin(), entries.end(), comesBefore);
    // The merged entries overwrite the front of the list they are made from.
    size_t written = 0;
    for (size_t first = 0; first < entries.size();) {
        size_t last = first + 1;
        while (last < entries.size() && entries[last].headword() == entries[first].headword())
            ++last;
        entries[written++] = last - first == 1
                                 ? entries[first]
                                 : mergeGroup(entries.data() + first, entries.data() + last);
        first = last;
    }
    entries.resize(written);
    return entries;
}

LexiconEntry EntryMerger::mergeGroup(const LexiconEntry* first, const LexiconEntry* last)
{
    std::vector<std::string_view> articles;
    std::unordered_set<std::string_view> known;
    for (const LexiconEntry* entry = first; entry != last; ++entry) {
        if (known.insert(entry->article()).second)
            articles.push_back(entry->article());
        else
            ++_report.repeatedArticles;
    }
    if (articles.size() == 1)
        return *first;
    ++_report.mergedHeadwords;
    const bool numbered =
        _numbers && std::none_of(articles.begin(), articles.end(), sensenumbers::beginsWithNumber);
    _article.clear();
    unsigned sense = 0;
    for (const std::string_view article : articles) {
        if (sense++ > 0)
            _article += '\n';
        if (numbered && sense <= sensenumbers::highest)
            (_article += static_cast<char>('0' + sense)) += ". ";
        _article += article;
    }
    return _arena.make(first->headword(), _article, first->order);
}

} // namespace teskel
