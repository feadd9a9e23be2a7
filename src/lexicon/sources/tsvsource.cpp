// SPDX-License-Identifier: MIT
#include "lexicon/sources/tsvsource.h"

#include "lexicon/diagnostics/diagnosticcode.h"
#include "lexicon/sources/siblingfile.h"
#include "lexicon/sources/tsv.h"

namespace teskel
{

namespace
{
constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";
} // namespace

Likeness TsvSource::looksLike(const std::string& path, std::string_view head)
{
    if (path == "-" || siblingfile::withoutPackerSuffix(path).ends_with(".tsv"))
        return Likeness::Named;
    const bool isText = head.find('\0') == std::string_view::npos;
    const std::string_view firstLine = head.substr(0, head.find('\n'));
    return isText && firstLine.find('\t') != std::string_view::npos ? Likeness::Possible
                                                                    : Likeness::None;
}

bool TsvSource::read(EntryIntake& intake, std::string& error)
{
    std::string line;
    bool isEnd = false;
    for (; _input->readLine(line, isEnd, error);) {
        if (isEnd)
            return _input->checkUnchanged(error);
        std::string_view text = line;
        if (++_lineNumber == 1 && text.starts_with(byteOrderMark))
            text.remove_prefix(byteOrderMark.size());
        if (text.ends_with('\r'))
            text.remove_suffix(1);
        if (!text.empty() && !takeLine(text, intake, error)) {
            error = placeInFile(_input->name(), _lineNumber) + ": " + error;
            return false;
        }
    }
    return false;
}

bool TsvSource::takeLine(std::string_view line, EntryIntake& intake, std::string& error)
{
    std::string_view headword;
    std::string_view article;
    if (!tsv::split(line, headword, article)) {
        error = "no tab between headword and article";
        return false;
    }
    const std::string_view property = tsv::propertyName(headword);
    const bool isDescription = headword.empty() || property == "description";
    if (isDescription && _description.empty()) {
        _description = tsv::unescaped(article);
    } else if (!property.empty()) {
        intake.note(diagnostic::unknownProperty, placeInFile(_input->name(), _lineNumber),
                    "\"##" + std::string(property) + "\" is left out: " +
                        (isDescription ? "the description is known already"
                                       : "\"##description\" alone has a place in a lexicon"));
    } else {
        const std::string where = placeInFile(_input->name(), _lineNumber);
        for (const std::string& word : tsv::headwords(headword))
            add(intake, word, tsv::unescaped(article), textKind(), ++_entryNumber, where);
    }
    return true;
}

} // namespace teskel
