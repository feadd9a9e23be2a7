// SPDX-License-Identifier: MIT
#include "lexicon/entries/buildreport.h"

#include "lexicon/entries/conversionnotes.h"
#include "lexicon/text/counted.h"
#include "lexicon/text/utf8.h"

#include <ostream>

namespace teskel
{

namespace
{

const char* heading(Latin1Converter::Change change)
{
    switch (change) {
    case Latin1Converter::Change::Entity:
        return "written as a named entity";
    case Latin1Converter::Change::Transliterated:
        return "written in other letters";
    case Latin1Converter::Change::Lost:
        return "unknown to Latin-1, written as \"?\"";
    case Latin1Converter::Change::Control:
        return "not to be shown, written as a blank";
    case Latin1Converter::Change::Windows:
        return "read as in Windows-1252";
    default:
        return "in place of bytes that are no UTF-8";
    }
}

} // namespace

void BuildReport::print(std::ostream& out) const
{
    printConversions(out);
    if (romanizedHeadwords > 0)
        out << counted(romanizedHeadwords, "headword") << " written in Latin letters; each stands "
            << "in its article as it is written\n";
    out << counted(entriesRead, "entry", "entries") << " read, " << counted(headwords, "headword")
        << " written, " << mergedHeadwords << " of them with several articles";
    if (repeatedArticles > 0)
        out << ", " << counted(repeatedArticles, "repeated article") << " kept once";
    out << "\n"
        << counted(records, "word record") << ", " << counted(unpackedBytes, "byte")
        << " of text in a file of " << counted(fileBytes, "byte") << ", "
        << counted(spotChecks, "word") << " looked up again\n";
}

void BuildReport::printConversions(std::ostream& out) const
{
    using Change = Latin1Converter::Change;
    for (const Change change : {Change::Entity, Change::Transliterated, Change::Lost,
                                Change::Control, Change::Windows, Change::InvalidByte}) {
        uint64_t total = 0;
        for (const auto& [key, count] : conversions)
            total += key.second == change ? count.times : 0;
        if (total == 0)
            continue;
        out << counted(total, "character") << ' ' << heading(change) << ":\n";
        for (const auto& [key, count] : conversions) {
            if (key.second == change)
                out << "  " << shownCharacter(key.first) << " -> \""
                    << utf8::fromLatin1(count.written) << "\" " << count.times << "\n";
        }
    }
}

} // namespace teskel
