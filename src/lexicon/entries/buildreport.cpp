// SPDX-License-Identifier: MIT
#include "lexicon/entries/buildreport.h"

#include "lexicon/entries/conversionnotes.h"
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
        return "not to be shown, written as blanks";
    case Latin1Converter::Change::Windows:
        return "that are control characters, read as in Windows-1252";
    default:
        return "that are no UTF-8";
    }
}

} // namespace

void BuildReport::print(std::ostream& out) const
{
    printConversions(out);
    if (romanizedHeadwords > 0)
        out << romanizedHeadwords << " headwords written in Latin letters; each stands in its "
            << "article as it is written\n";
    out << entriesRead << " entries read, " << headwords << " headwords written, "
        << mergedHeadwords << " of them with several articles";
    if (repeatedArticles > 0)
        out << ", " << repeatedArticles << " repeated articles kept once";
    out << "\n"
        << records << " word records, " << unpackedBytes << " bytes of text in a file of "
        << fileBytes << " bytes, " << spotChecks << " words looked up again\n";
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
        out << total << " characters " << heading(change) << ":\n";
        for (const auto& [key, count] : conversions) {
            if (key.second == change)
                out << "  " << shownCharacter(key.first) << " -> \""
                    << utf8::fromLatin1(count.written) << "\" " << count.times << "\n";
        }
    }
}

} // namespace teskel
