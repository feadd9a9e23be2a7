// SPDX-License-Identifier: MIT
#include "lexicon/text/plaintext.h"

#include "lexicon/text/characterreference.h"
#include "lexicon/text/charactertables.h"
#include "lexicon/text/tags.h"
#include "lexicon/text/utf8.h"
#include "script/letterreference.h"

#include <algorithm>
#include <iterator>
#include <map>

namespace teskel
{

namespace
{

/// HTML 4's names of the characters from U+00A0 on.
constexpr std::string_view latin1Names[] = {
    "nbsp",   "iexcl",  "cent",   "pound",  "curren", "yen",    "brvbar", "sect",   "uml",
    "copy",   "ordf",   "laquo",  "not",    "shy",    "reg",    "macr",   "deg",    "plusmn",
    "sup2",   "sup3",   "acute",  "micro",  "para",   "middot", "cedil",  "sup1",   "ordm",
    "raquo",  "frac14", "frac12", "frac34", "iquest", "Agrave", "Aacute", "Acirc",  "Atilde",
    "Auml",   "Aring",  "AElig",  "Ccedil", "Egrave", "Eacute", "Ecirc",  "Euml",   "Igrave",
    "Iacute", "Icirc",  "Iuml",   "ETH",    "Ntilde", "Ograve", "Oacute", "Ocirc",  "Otilde",
    "Ouml",   "times",  "Oslash", "Ugrave", "Uacute", "Ucirc",  "Uuml",   "Yacute", "THORN",
    "szlig",  "agrave", "aacute", "acirc",  "atilde", "auml",   "aring",  "aelig",  "ccedil",
    "egrave", "eacute", "ecirc",  "euml",   "igrave", "iacute", "icirc",  "iuml",   "eth",
    "ntilde", "ograve", "oacute", "ocirc",  "otilde", "ouml",   "divide", "oslash", "ugrave",
    "uacute", "ucirc",  "uuml",   "yacute", "thorn",  "yuml"};
static_assert(std::size(latin1Names) == 0x60);

/// Beyond it HTML 4 names nothing.
constexpr char32_t lastNamed = 0x2666;

std::map<std::string_view, char32_t> namedCharacters()
{
    std::map<std::string_view, char32_t> names = {
        {"lt", U'<'}, {"gt", U'>'}, {"amp", U'&'}, {"quot", U'"'}};
    for (char32_t i = 0; i < std::size(latin1Names); ++i)
        names.emplace(latin1Names[i], 0xA0 + i);
    for (char32_t character = 0x100; character <= lastNamed; ++character) {
        if (const std::string_view name = entityName(character); !name.empty())
            names.emplace(name, character);
    }
    return names;
}

/// The reference at the beginning of `text`, of any kind; length 0 when there is none.
CharacterReference readReference(std::string_view text)
{
    static const std::map<std::string_view, char32_t> names = namedCharacters();
    if (const LetterReference letters = readLetterReference(text); letters.length > 0)
        return {letters.character, letters.length};
    const size_t end = text.substr(0, 12).find(';');
    if (end == std::string_view::npos)
        return {};
    const std::string_view spelling = text.substr(0, end + 1);
    if (const auto named = names.find(spelling.substr(1, end - 1)); named != names.end())
        return {named->second, spelling.size()};
    return readDigitReference(utf8::decoded(spelling));
}

} // namespace

std::string plainText(std::string_view markup)
{
    std::string plain;
    const size_t tagsEnd = markup.rfind('>') + 1; // behind it none has an end to be looked for
    for (size_t at = 0; at < markup.size();) {
        const std::string_view rest = markup.substr(at);
        const std::string_view tag = at < tagsEnd ? tags::atBeginning(rest) : std::string_view();
        if (!tag.empty()) {
            if (tags::breaksLine(tag))
                plain += '\n';
            at += tag.size();
            continue;
        }
        const CharacterReference reference =
            rest.front() == '&' ? readReference(rest) : CharacterReference();
        if (reference.length > 0)
            plain += utf8::encoded({&reference.character, 1});
        else
            plain += rest.front();
        at += std::max<size_t>(reference.length, 1);
    }
    return plain;
}

} // namespace teskel
