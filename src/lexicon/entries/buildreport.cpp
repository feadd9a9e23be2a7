// SPDX-License-Identifier: MIT
#include "lexicon/entries/buildreport.h"

#include "lexicon/text/utf8.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <ostream>

namespace teskel
{

namespace
{

constexpr uint64_t notesShownOfAKind = 5;

std::string codePoint(char32_t character)
{
    std::array<char, 16> text{};
    std::snprintf(text.data(), text.size(), "U+%04X", static_cast<unsigned>(character));
    return text.data();
}

std::string shown(char32_t character)
{
    std::string text;
    if (character >= 0x20 && character != 0x7F && character != utf8::invalid) {
        text = utf8::encoded({&character, 1}) + ' ';
    }
    return text + codePoint(character);
}

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
    default:
        return "that are no UTF-8";
    }
}

} // namespace

void BuildReport::note(const std::string& kind, const std::string& sentence)
{
    if (_notesOfKind[kind]++ < notesShownOfAKind)
        notes.push_back(sentence);
}

void BuildReport::print(std::ostream& out) const
{
    for (const std::string& sentence : notes)
        out << sentence << '\n';
    for (const auto& [kind, times] : _notesOfKind) {
        if (times > notesShownOfAKind)
            out << "and " << times - notesShownOfAKind << " more of this kind: " << kind << '\n';
    }
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
                                Change::Control, Change::InvalidByte}) {
        uint64_t total = 0;
        for (const auto& [key, count] : conversions)
            total += key.second == change ? count.times : 0;
        if (total == 0)
            continue;
        out << total << " characters " << heading(change) << ":\n";
        for (const auto& [key, count] : conversions) {
            if (key.second == change)
                out << "  " << shown(key.first) << " -> \"" << utf8::fromLatin1(count.written)
                    << "\" " << count.times << "\n";
        }
    }
}

} // namespace teskel
