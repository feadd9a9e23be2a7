// SPDX-License-Identifier: MIT
#include "lexicon/sources/tsvsource.h"

#include "lexicon/diagnostics/diagnosticcode.h"
#include "lexicon/sources/siblingfile.h"
#include "lexicon/sources/tsv.h"
#include "lexicon/text/textlines.h"
#include "lexicon/text/utf8.h"

namespace teskel
{

Likeness TsvSource::looksLike(const std::string& path, std::string_view head)
{
    if (path == "-" || siblingfile::withoutPackerSuffix(path).ends_with(".tsv"))
        return Likeness::Named;
    const bool isText = head.find('\0') == std::string_view::npos;
    const bool hasTab = firstLine(head).find('\t') != std::string_view::npos;
    return isText && hasTab ? Likeness::Possible : Likeness::None;
}

bool TsvSource::read(EntryIntake& intake, std::string& error)
{
    std::string line;
    bool isEnd = false;
    for (; _input->readLine(line, isEnd, error);) {
        if (isEnd)
            return _input->checkUnchanged(error);
        const std::string where = placeInFile(_input->name(), ++_lineNumber);
        _texts.check(line, where);
        countRead(line.size() + 1);
        std::string_view text = _lineNumber == 1 ? utf8::withoutByteOrderMark(line) : line;
        if (text.ends_with('\r'))
            text.remove_suffix(1);
        if (!text.empty() && !takeLine(text, where, intake, error)) {
            error = where + ": " + error;
            return false;
        }
        if (!isInMeasure(where, error))
            return false;
    }
    return false;
}

bool TsvSource::takeLine(std::string_view line, const std::string& where, EntryIntake& intake,
                         std::string& error)
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
        intake.note(diagnostic::unknownProperty, where,
                    "\"##" + std::string(property) + "\" is left out: " +
                        (isDescription ? "the description is known already"
                                       : "\"##description\" alone has a place in a lexicon"));
    } else {
        const std::string text = tsv::unescaped(article);
        std::string tooMany;
        for (const std::string& word : tsv::headwords(headword)) {
            add(intake, word, text, textKind(), ++_entryNumber, where);
            if (!isInMeasure(where, tooMany)) // which is told of the line
                break;
        }
    }
    return true;
}

} // namespace teskel
