// SPDX-License-Identifier: MIT
#include "lexicon/sources/tsvsource.h"

#include "lexicon/sources/inputfile.h"
#include "lexicon/sources/tsv.h"

namespace teskel
{

namespace
{
constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";
} // namespace

bool TsvSource::isNamedBy(std::string_view path)
{
    return path == "-" || path.ends_with(".tsv");
}

bool TsvSource::read(EntryIntake& intake, std::string& error)
{
    InputFile file;
    std::string text;
    if (!file.open(_path, error) || !file.readAll(text, error))
        return false;
    std::string_view rest = text;
    if (rest.starts_with(byteOrderMark))
        rest.remove_prefix(byteOrderMark.size());
    for (uint32_t number = 1; !rest.empty(); ++number) {
        const size_t end = rest.find('\n');
        std::string_view line = rest.substr(0, end);
        rest.remove_prefix(end == std::string_view::npos ? rest.size() : end + 1);
        if (line.ends_with('\r'))
            line.remove_suffix(1);
        if (line.empty())
            continue;
        const std::string where = "line " + std::to_string(number);
        std::string_view headword;
        std::string_view article;
        if (!tsv::split(line, headword, article)) {
            error = (_path == "-" ? "standard input" : _path) + ", " + where +
                    ": no tab between headword and article";
            return false;
        }
        if (headword.empty() && _description.empty())
            _description = tsv::unescaped(article);
        else
            intake.add(tsv::unescaped(headword), tsv::unescaped(article), textKind(), number,
                       where);
    }
    return true;
}

} // namespace teskel
