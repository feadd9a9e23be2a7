// SPDX-License-Identifier: MIT
#include "lexicon/sources/stardict/stardictsource.h"

#include "lexicon/sources/freedictentry.h"
#include "lexicon/sources/freedictline.h"
#include "lexicon/sources/siblingfile.h"
#include "lexicon/sources/stardict/stardictarticle.h"
#include "lexicon/text/characterreference.h"

#include <algorithm>

namespace teskel
{

namespace
{

constexpr std::string_view infoSuffix = ".ifo";
constexpr std::string_view indexSuffix = ".idx";
constexpr std::string_view alternativesSuffix = ".syn";
constexpr std::string_view articlesSuffix = ".dict";

std::string_view baseOf(std::string_view path)
{
    const std::string_view base =
        siblingfile::base(path, {infoSuffix, indexSuffix, alternativesSuffix, articlesSuffix});
    return base.empty() ? path : base;
}

} // namespace

Likeness StarDictSource::looksLike(const std::string& path, std::string_view head)
{
    if (path == "-")
        return Likeness::None;
    if (StarDictInfo::isBegunBy(head))
        return Likeness::Certain;
    const bool isOneOfThem = head.empty() || baseOf(path) != path;
    return path.ends_with(infoSuffix) ||
                   (isOneOfThem && !siblingfile::find(baseOf(path), infoSuffix).empty())
               ? Likeness::Named
               : Likeness::None;
}

bool StarDictSource::open(EntryIntake& intake, std::string& error)
{
    const std::string base(baseOf(_path));
    _infoPath = siblingfile::find(base, infoSuffix);
    // An .ifo of another name has said by its content what it is.
    if (_infoPath.empty())
        _infoPath = base == _path ? _path : base + std::string(infoSuffix);
    _indexPath = siblingfile::find(base, indexSuffix);
    _alternativesPath = siblingfile::find(base, alternativesSuffix);
    const std::string articlesPath = siblingfile::find(base, articlesSuffix);
    if (!_info.read(_infoPath, error))
        return false;
    if (_indexPath.empty() || articlesPath.empty()) {
        error =
            "cannot find " + base +
            (_indexPath.empty() ? ".idx or " + base + ".idx.gz" : ".dict.dz or " + base + ".dict") +
            " beside the .ifo";
        return false;
    }
    if (!_index.read(_indexPath, _alternativesPath, _info, error))
        return false;
    if (_info.wordCount && *_info.wordCount != _index.wordCount())
        intake.note("word counts that are wrong",
                    _infoPath + ": it counts " + std::to_string(*_info.wordCount) +
                        " words, the index has " + std::to_string(_index.wordCount()) +
                        "; all of them are taken");
    _description = _info.name;
    return _articles.open(articlesPath, error);
}

std::string StarDictSource::placeOf(const StarDictIndex::Word& word) const
{
    return placeInFile(word.isAlternative ? _alternativesPath : _indexPath, word.place);
}

bool StarDictSource::readArticle(const Numbered& entry, StarDictArticle& article,
                                 std::string& error)
{
    if (!_articles.read(entry.word.offset, entry.word.size, _data, error)) {
        error = placeOf(entry.word) + ": " + error;
        return false;
    }
    article = StarDictArticle::parse(_data, _info.typeSequence);
    return true;
}

/// Dictionaries that were dictd's before begin their articles with the line of the word. In others
/// that happens now and then, where a word is the same in both languages: most of the first
/// thousand plain articles decide.
bool StarDictSource::findLayout(const std::vector<Numbered>& entries, std::string& error)
{
    constexpr size_t sampled = 1000;
    size_t plain = 0;
    size_t repeated = 0;
    for (size_t i = 0; i < std::min(sampled, entries.size()); ++i) {
        StarDictArticle article;
        if (!readArticle(entries[i], article, error))
            return false;
        if (article.plain.empty())
            continue;
        const std::string_view text = article.plain;
        const std::string word = freedict::readFirstLine(text.substr(0, text.find('\n'))).word;
        ++plain;
        repeated +=
            FreeDictEntry::normalized(word) == FreeDictEntry::normalized(entries[i].word.key) ? 1
                                                                                              : 0;
    }
    _repeatsWords = repeated * 2 > plain;
    return true;
}

void StarDictSource::note(EntryIntake& intake, const StarDictArticle& article,
                          const std::string& where) const
{
    for (const char type : article.skipped)
        intake.note(std::string("fields of type \"") + type + "\"",
                    where + ": a field of type \"" + type + "\" is left out: it cannot be shown");
    if (article.wasLatin1)
        intake.note("fields of type \"l\" that are no UTF-8",
                    where + ": a field of type \"l\" is no UTF-8; it is read as Latin-1");
    if (article.isDamaged)
        intake.note("fields longer than their article",
                    where + ": a field is longer than its article; what is there is taken");
}

void StarDictSource::addArticle(EntryIntake& intake, const Numbered& entry,
                                const StarDictArticle& article)
{
    const std::string where = placeOf(entry.word);
    note(intake, article, where);
    const std::string_view key = entry.word.key;
    const bool isSpoken = !article.pronunciation.empty();
    if (!article.rich.empty()) {
        const std::string spoken =
            isSpoken ? escapedMarkup("/" + article.pronunciation + "/") + "\n" : std::string();
        add(intake, key, spoken + article.rich, Latin1Converter::Text::MarkupArticle, entry.number,
            where);
    } else if (_repeatsWords && !isSpoken) {
        addLaidOut(intake, key, Written::InText, article.plain, entry.number, where);
    } else {
        std::string text(key);
        if (isSpoken)
            text += " /" + article.pronunciation + "/";
        addLaidOut(intake, key, Written::AsKey, text + "\n" + article.plain, entry.number, where);
    }
}

bool StarDictSource::read(EntryIntake& intake, std::string& error)
{
    if (!open(intake, error))
        return false;
    // In the order of the data everything is unpacked once.
    std::vector<Numbered> entries;
    entries.reserve(_index.words().size());
    for (const StarDictIndex::Word& word : _index.words())
        entries.push_back({word, static_cast<uint32_t>(entries.size() + 1)});
    std::sort(entries.begin(), entries.end(), [](const Numbered& a, const Numbered& b) {
        return a.word.offset != b.word.offset ? a.word.offset < b.word.offset : a.number < b.number;
    });
    if (!findLayout(entries, error))
        return false;
    StarDictArticle article;
    for (const Numbered& entry : entries) {
        if (!readArticle(entry, article, error))
            return false;
        addArticle(intake, entry, article);
    }
    return _articles.checkUnchanged(error);
}

} // namespace teskel
