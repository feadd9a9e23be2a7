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

std::vector<EntryMerger::Word> EntryMerger::wordsOf(const LexiconEntry* first,
                                                    const LexiconEntry* last)
{
    std::vector<Word> words;
    std::unordered_set<std::string_view> known;
    for (const LexiconEntry* entry = first; entry != last; ++entry) {
        if (!known.insert(entry->article()).second) {
            ++_report.repeatedArticles;
            continue;
        }
        const std::string_view line = entry->article().substr(0, entry->writtenLength);
        auto word = std::find_if(words.begin(), words.end(),
                                 [line](const Word& each) { return each.line == line; });
        if (word == words.end())
            word = words.insert(line.empty() ? words.begin() : words.end(), {line, {}});
        word->articles.push_back(entry->article().substr(line.size()));
    }
    return words;
}

LexiconEntry EntryMerger::mergeGroup(const LexiconEntry* first, const LexiconEntry* last)
{
    const std::vector<Word> words = wordsOf(first, last);
    if (words.size() == 1 && words.front().articles.size() == 1)
        return *first;
    ++_report.mergedHeadwords;
    _article.clear();
    for (const Word& word : words) {
        if (!_article.empty())
            _article += '\n';
        append(word);
    }
    return _arena.make(first->headword(), _article, first->order);
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
