// SPDX-License-Identifier: MIT
#include "lexicon/sources/stardict/stardictsource.h"

#include "lexicon/diagnostics/diagnosticcode.h"
#include "lexicon/sources/freedictentry.h"
#include "lexicon/sources/freedictline.h"
#include "lexicon/sources/siblingfile.h"
#include "lexicon/sources/stardict/stardictarticle.h"
#include "lexicon/text/plainarticle.h"
#include "lexicon/text/textlines.h"

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

bool StarDictSource::open(std::string& error)
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
    _description = _texts.decoded(_info.name, _infoPath, ", in its bookname");
    return _articles.open(articlesPath, error);
}

bool StarDictSource::openIndex(StarDictIndex& index, std::string& error) const
{
    return index.open(_indexPath, _alternativesPath, _info, error);
}

bool StarDictSource::nextWord(StarDictIndex& index, StarDictIndex::Word& word, bool& isEnd,
                              std::string& error)
{
    if (!index.next(word, isEnd, error))
        return false;
    if (!isEnd)
        word.key = std::string(_texts.decoded(word.key, placeOf(word)));
    return true;
}

std::string StarDictSource::placeOf(const StarDictIndex::Word& word) const
{
    return placeInFile(word.isAlternative ? _alternativesPath : _indexPath, word.place);
}

bool StarDictSource::readArticle(const StarDictIndex::Word& word, StarDictArticle& article,
                                 std::string& error)
{
    if (!_articles.read(word.offset, word.size, _data, error)) {
        error = placeOf(word) + ": " + error;
        return false;
    }
    const auto decoded = [&](char type, std::string_view text) {
        // Such a field is in an encoding of its own, unless it is told which.
        const bool isOwn = type == 'l' && _texts.options().name.empty();
        return isOwn ? text : _texts.decoded(text, placeOf(word), ", in its article");
    };
    article = StarDictArticle::parse(_data, _info.typeSequence, decoded);
    return true;
}

/// Dictionaries that were dictd's before begin their articles with the line of the word. In others
/// that happens now and then, where a word is the same in both languages: most of the first
/// thousand plain articles decide.
bool StarDictSource::findLayout(std::string& error)
{
    constexpr size_t sampled = 1000;
    StarDictIndex index;
    StarDictIndex::Word word;
    StarDictArticle article;
    size_t plain = 0;
    size_t repeated = 0;
    bool isEnd = false;
    if (!openIndex(index, error))
        return false;
    for (size_t read = 0; read < sampled; ++read) {
        if (!nextWord(index, word, isEnd, error) || (!isEnd && !readArticle(word, article, error)))
            return false;
        if (isEnd)
            break;
        if (article.plain.empty())
            continue;
        const std::string first = freedict::readFirstLine(firstLine(article.plain)).word;
        ++plain;
        if (FreeDictEntry::normalized(first) == FreeDictEntry::normalized(word.key))
            ++repeated;
    }
    _repeatsWords = repeated * 2 > plain;
    return true;
}

void StarDictSource::note(EntryIntake& intake, const StarDictArticle& article,
                          const std::string& where)
{
    for (const char type : article.skipped)
        intake.note(diagnostic::unknownField, where,
                    std::string("a field of type \"") + type +
                        "\" is left out: it cannot be shown");
    if (article.wasLatin1)
        intake.note(diagnostic::fieldEncoding, where,
                    "a field of type \"l\" is no UTF-8; it is read as Latin-1");
    if (article.isDamaged)
        intake.note(diagnostic::fieldLength, where,
                    "a field is longer than its article; what is there is taken");
}

void StarDictSource::addArticle(EntryIntake& intake, const StarDictIndex::Word& word,
                                const StarDictArticle& article)
{
    const std::string where = placeOf(word);
    note(intake, article, where);
    const std::string& key = word.key;
    std::string spoken;
    if (!article.pronunciation.empty())
        spoken = "/" + article.pronunciation + "/";
    if (!article.rich.empty()) {
        if (!spoken.empty() && intake.options().keepsPronunciations())
            spoken = richText(spoken, {{0, spoken.size()}}) + "\n";
        else
            spoken.clear();
        add(intake, key, spoken + article.rich, Latin1Converter::Text::MarkupArticle, ++_number,
            where);
    } else if (_repeatsWords && spoken.empty()) {
        addLaidOut(intake, key, Written::InText, article.plain, ++_number, where);
    } else {
        const std::string line = spoken.empty() ? key : key + " " + spoken;
        addLaidOut(intake, key, Written::AsKey, line + "\n" + article.plain, ++_number, where);
    }
}

bool StarDictSource::read(EntryIntake& intake, std::string& error)
{
    StarDictIndex index;
    StarDictIndex::Word word;
    StarDictArticle article;
    uint64_t articlesEnd = 0; // of those that were read
    if (!open(error) || !findLayout(error) || !openIndex(index, error))
        return false;
    intake.expect(_info.wordCount.value_or(0));
    for (bool isEnd = false; nextWord(index, word, isEnd, error);) {
        if (isEnd) {
            if (_info.wordCount && *_info.wordCount != index.wordCount())
                intake.note(diagnostic::wordCount, _infoPath,
                            "it counts " + std::to_string(*_info.wordCount) +
                                " words, the index has " + std::to_string(index.wordCount()) +
                                "; all of them are taken");
            return _articles.checkUnchanged(error);
        }
        if (!readArticle(word, article, error))
            return false;
        countRead(word.key.size() + 1);
        if (word.offset + word.size > articlesEnd) {
            countRead(word.offset + word.size - articlesEnd);
            articlesEnd = word.offset + word.size;
        }
        addArticle(intake, word, article);
        if (!isInMeasure(placeOf(word), error))
            return false;
    }
    return false;
}

} // namespace teskel
