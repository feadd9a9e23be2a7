// SPDX-License-Identifier: MIT
#include "lexicon/entries/conversionnotes.h"

#include "lexicon/text/charactertables.h"
#include "lexicon/text/utf8.h"
#include "script/letterreference.h"

#include <array>
#include <cstdio>

namespace teskel
{

namespace
{

using Change = Latin1Converter::Change;

const DiagnosticCode& codeOf(Change change)
{
    switch (change) {
    case Change::Entity:
        return diagnostic::namedEntity;
    case Change::Transliterated:
        return diagnostic::otherLetters;
    case Change::Lost:
        return diagnostic::unknownCharacter;
    case Change::Control:
        return diagnostic::controlCharacter;
    case Change::Windows:
        return diagnostic::windowsCharacter;
    default:
        return diagnostic::invalidUtf8;
    }
}

std::string sentence(char32_t character, Change change, const std::string& written)
{
    if (change == Change::Windows)
        return shownCharacter(character) + " is a control character; read as " +
               shownCharacter(windowsCharacter(character)) + ", as in Windows-1252";
    const std::string what = change == Change::InvalidByte ? "a byte is no UTF-8"
                             : change == Change::Control
                                 ? shownCharacter(character) + " is not to be shown"
                                 : shownCharacter(character) + " is not in Latin-1";
    return what + "; written as \"" + utf8::fromLatin1(written) + '"';
}

} // namespace

void ConversionNotes::tell(const Latin1Converter::Counts& counts, std::string_view where,
                           Diagnostics& diagnostics)
{
    if (counts.size() == _told.size())
        return;
    for (const auto& [key, count] : counts) {
        if (_told.insert(key).second)
            diagnostics.add(codeOf(key.second), where,
                            sentence(key.first, key.second, count.written));
    }
}

std::string shownCharacter(char32_t character)
{
    std::array<char, 16> number{};
    const char32_t shown = character == utf8::invalid ? utf8::replacement : character;
    std::snprintf(number.data(), number.size(), "U+%04X", static_cast<unsigned>(shown));
    if (!isShowable(character))
        return number.data();
    return utf8::encoded({&character, 1}) + ' ' + number.data();
}

} // namespace teskel
