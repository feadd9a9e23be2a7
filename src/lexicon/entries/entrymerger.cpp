// SPDX-License-Identifier: MIT
#include "lexicon/entries/entrymerger.h"

#include "lexicon/text/sensenumbers.h"

#include <algorithm>
#include <unordered_map>
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

EntryMerger::EntryMerger(EntryStream& sorted, BuildReport& report, bool numbers, LatinForm form)
    : _groups(sorted, haveOneHeadword)
    , _report(report)
    , _numbers(numbers)
    , _form(form)
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

/// In the order of the source, but the word without a line first.
std::vector<EntryMerger::Word> EntryMerger::wordsOf(const std::vector<LexiconEntry>& group)
{
    std::vector<Word> words(1);
    std::unordered_map<std::string_view, size_t> places = {{std::string_view(), 0}};
    std::unordered_set<std::string_view> known;
    for (const LexiconEntry& entry : group) {
        if (!known.insert(entry.article()).second) {
            ++_report.repeatedArticles;
            continue;
        }
        const std::string_view line = entry.article().substr(0, entry.writtenLength);
        const auto [place, isNew] = places.emplace(line, words.size());
        if (isNew)
            words.push_back({line, {}});
        words[place->second].articles.push_back(entry.article().substr(line.size()));
    }
    if (words.front().articles.empty())
        words.erase(words.begin());
    return words;
}

LexiconEntry EntryMerger::merged(const std::vector<LexiconEntry>& group)
{
    const std::vector<Word> words = wordsOf(group);
    if (words.size() == 1 && words.front().articles.size() == 1)
        return group.front();
    ++_report.mergedHeadwords;
    _article.clear();
    for (const Word& word : words) {
        if (!_article.empty())
            _article += '\n';
        append(word);
    }
    // What is open at an article's end, such as a tag, goes on in the next one.
    if (_form == LatinForm::Plain)
        sensenumbers::protect(_article, sensenumbers::LineStart::Trusted);
    else
        sensenumbers::referDigits(_article);
    _arena.clear();
    return _arena.make(group.front().headword(), _article, group.front().order);
}

bool EntryMerger::isNumbered(std::string_view article) const
{
    return _form == LatinForm::Plain ? sensenumbers::beginsWithNumber(article)
                                     : sensenumbers::hasNumber(article);
}

std::string EntryMerger::number(unsigned sense) const
{
    if (_form == LatinForm::Plain && sense > sensenumbers::highest)
        return {};
    std::string text = sensenumbers::written(sense);
    sensenumbers::referDigits(text);
    return text + ' ';
}

void EntryMerger::append(const Word& word)
{
    const auto& articles = word.articles;
    const bool numbered =
        _numbers && articles.size() > 1 &&
        std::none_of(articles.begin(), articles.end(),
                     [this](std::string_view article) { return isNumbered(article); });
    _article += word.line;
    for (size_t i = 0; i < articles.size(); ++i) {
        if (i > 0)
            _article += '\n';
        if (numbered)
            _article += number(static_cast<unsigned>(i) + 1);
        _article += articles[i];
    }
}

} // namespace teskel
