// SPDX-License-Identifier: MIT
#include "lexicon/entries/entrymerger.h"

#include "lexicon/text/sensenumbers.h"

#include <algorithm>
#include <unordered_set>

namespace teskel
{

namespace
{

bool haveOneHeadword(const LexiconEntry& a, const LexiconEntry& b)
{
    return a.headword() == b.headword();
}

} // namespace

EntryMerger::EntryMerger(EntryStream& sorted, BuildReport& report, bool numbers)
    : _groups(sorted, haveOneHeadword)
    , _report(report)
    , _numbers(numbers)
{
}

bool EntryMerger::next(LexiconEntry& entry)
{
    const std::vector<LexiconEntry>& group = _groups.next();
    if (group.empty())
        return false;
    entry = group.size() == 1 ? group.front() : merged(group);
    return true;
}

LexiconEntry EntryMerger::merged(const std::vector<LexiconEntry>& group)
{
    std::vector<std::string_view> articles;
    std::unordered_set<std::string_view> known;
    for (const LexiconEntry& entry : group) {
        if (known.insert(entry.article()).second)
            articles.push_back(entry.article());
        else
            ++_report.repeatedArticles;
    }
    if (articles.size() == 1)
        return group.front();
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
    _arena.clear();
    return _arena.make(group.front().headword(), _article, group.front().order);
}

} // namespace teskel
