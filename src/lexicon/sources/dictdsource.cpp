// SPDX-License-Identifier: MIT
#include "lexicon/sources/dictdsource.h"

#include "lexicon/sources/siblingfile.h"
#include "lexicon/text/textlines.h"

#include <algorithm>

#include <unistd.h>

namespace teskel
{

namespace
{

constexpr std::string_view indexSuffix = ".index";
constexpr std::string_view articlesSuffix = ".dict";

/// What the names of the dictionary's files have in common.
std::string_view baseOf(std::string_view path)
{
    const std::string_view base = siblingfile::base(path, {indexSuffix, articlesSuffix});
    return base.empty() ? path : base;
}

/// The first line that holds anything, without the blanks around it.
std::string firstTextOf(std::string_view text)
{
    text.remove_prefix(std::min(text.find_first_not_of(" \t\r\n"), text.size()));
    return std::string(trimmed(firstLine(text)));
}

bool isShortName(const DictdIndex::Line& line)
{
    return line.key == "00databaseshort" || line.key == "00-database-short";
}

} // namespace

Likeness DictdSource::looksLike(const std::string& path, std::string_view head)
{
    if (path == "-")
        return Likeness::None;
    // What looks like an index could be any table; its articles make sure.
    if (DictdIndex::isBegunBy(head) && !siblingfile::find(baseOf(path), articlesSuffix).empty())
        return Likeness::Certain;
    const bool isIndex = !siblingfile::base(path, {indexSuffix}).empty();
    const bool isArticles = head.empty() || !siblingfile::base(path, {articlesSuffix}).empty();
    return isIndex || (isArticles && !siblingfile::find(baseOf(path), indexSuffix).empty())
               ? Likeness::Named
               : Likeness::None;
}

bool DictdSource::findFiles(std::string& error)
{
    const std::string base(baseOf(_path));
    // A path that names the index is taken at its word, for the sake of the error message.
    const bool isIndex = !siblingfile::base(_path, {indexSuffix}).empty();
    const bool isArticles = !siblingfile::base(_path, {articlesSuffix}).empty();
    _indexPath = isIndex ? _path : siblingfile::find(base, indexSuffix);
    _articlesPath = isArticles ? _path : siblingfile::find(base, articlesSuffix);
    if (_indexPath.empty() && ::access(_path.c_str(), F_OK) == 0 && !isArticles)
        _indexPath = _path;
    if (_indexPath.empty())
        error = "cannot find " + base + ".index beside the articles";
    return !_indexPath.empty();
}

bool DictdSource::openArticles(InputFile& articles, std::string& error) const
{
    if (_articlesPath.empty()) {
        const std::string base(baseOf(_path));
        error = "cannot find " + base + ".dict.dz or " + base + ".dict beside the index";
        return false;
    }
    if (!articles.open(_articlesPath, error))
        return false;
    if (articles.isPacked() || !_articlesPath.ends_with(".dz"))
        return true;
    error = _articlesPath + " is not packed by dictzip or gzip";
    return false;
}

void DictdSource::takeMetadata(const DictdIndex::Line& line, std::string_view text)
{
    if (!isShortName(line) || !_description.empty())
        return;
    // Some makers repeat the key in front of the text.
    if (text.starts_with("00-database-short") || text.starts_with("00databaseshort"))
        takeLine(text);
    _description = firstTextOf(text);
}

bool DictdSource::read(EntryIntake& intake, std::string& error)
{
    DictdIndex index;
    InputFile articles;
    DictdIndex::Line line;
    std::string text;
    std::string key;
    uint64_t articlesEnd = 0; // of those that were read
    bool isEnd = false;
    // The first line tells whether this is an index at all, so it comes before the articles.
    if (!findFiles(error) || !index.open(_indexPath, error) || !index.next(line, isEnd, error) ||
        !openArticles(articles, error))
        return false;
    while (!isEnd) {
        const std::string where = placeInFile(_indexPath, line.number);
        if (!articles.read(line.offset, line.size, text, error)) {
            error = where + ": " + error;
            return false;
        }
        countRead(line.key.size() + 1);
        if (line.offset + line.size > articlesEnd) {
            countRead(line.offset + line.size - articlesEnd);
            articlesEnd = line.offset + line.size;
        }
        key = _texts.decoded(line.key, where);
        const std::string_view article = _texts.decoded(text, where, ", in its article");
        if (line.isMetadata())
            takeMetadata(line, article);
        else
            addLaidOut(intake, key, Written::InText, article, line.number, where);
        if (!isInMeasure(where, error))
            return false;
        if (!index.next(line, isEnd, error))
            return false;
    }
    return articles.checkUnchanged(error);
}

} // namespace teskel
