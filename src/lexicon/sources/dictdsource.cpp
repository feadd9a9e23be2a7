// SPDX-License-Identifier: MIT
#include "lexicon/sources/dictdsource.h"

#include "lexicon/sources/freedictentry.h"

#include <algorithm>

#include <unistd.h>

namespace teskel
{

namespace
{

constexpr std::string_view indexSuffix = ".index";

/// The first line that holds anything, without the blanks around it.
std::string firstLineOf(std::string_view text)
{
    const size_t begin = text.find_first_not_of(" \t\r\n");
    if (begin == std::string_view::npos)
        return {};
    text.remove_prefix(begin);
    text = text.substr(0, text.find('\n'));
    return std::string(text.substr(0, text.find_last_not_of(" \t\r") + 1));
}

bool isShortName(const DictdIndex::Line& line)
{
    return line.key == "00databaseshort" || line.key == "00-database-short";
}

} // namespace

bool DictdSource::isNamedBy(std::string_view path)
{
    return path.ends_with(indexSuffix);
}

bool DictdSource::openArticles(InputFile& articles, std::string& error) const
{
    const std::string base = _indexPath.substr(0, _indexPath.size() - indexSuffix.size());
    for (const char* suffix : {".dict.dz", ".dict"}) {
        const std::string path = base + suffix;
        if (::access(path.c_str(), F_OK) != 0)
            continue;
        if (!articles.open(path, error))
            return false;
        if (articles.isPacked() || !path.ends_with(".dz"))
            return true;
        error = path + " is not packed by dictzip or gzip";
        return false;
    }
    error = "cannot find " + base + ".dict.dz or " + base + ".dict beside the index";
    return false;
}

bool DictdSource::readDescription(const DictdIndex& index, InputFile& articles, std::string& error)
{
    const auto& lines = index.metadata();
    const auto name = std::find_if(lines.begin(), lines.end(), isShortName);
    if (name == lines.end())
        return true;
    std::string text;
    if (!articles.read(name->offset, name->size, text, error))
        return false;
    // Some makers repeat the key in front of the text.
    std::string_view rest = text;
    if (rest.starts_with("00-database-short") || rest.starts_with("00databaseshort"))
        rest.remove_prefix(std::min(rest.find('\n'), rest.size()));
    _description = firstLineOf(rest);
    return true;
}

bool DictdSource::read(EntryIntake& intake, std::string& error)
{
    DictdIndex index;
    InputFile articles;
    if (!index.read(_indexPath, error) || !openArticles(articles, error) ||
        !readDescription(index, articles, error))
        return false;
    // In the order of the data everything is unpacked once.
    std::vector<const DictdIndex::Line*> lines;
    lines.reserve(index.entries().size());
    for (const DictdIndex::Line& line : index.entries())
        lines.push_back(&line);
    std::sort(lines.begin(), lines.end(), [](const auto* a, const auto* b) {
        return a->offset != b->offset ? a->offset < b->offset : a->number < b->number;
    });
    std::string text;
    for (const DictdIndex::Line* line : lines) {
        if (!articles.read(line->offset, line->size, text, error)) {
            error = _indexPath + ", line " + std::to_string(line->number) + ": " + error;
            return false;
        }
        const FreeDictEntry entry = FreeDictEntry::parse(line->key, text, intake.options());
        const std::string where = "line " + std::to_string(line->number);
        if (entry.pronunciations.empty())
            intake.add(entry.headword, entry.article, textKind(), line->number, where);
        else
            intake.add(entry.headword, richText(entry.article, entry.pronunciations),
                       Latin1Converter::Text::MarkupArticle, line->number, where);
    }
    return true;
}

} // namespace teskel
