// SPDX-License-Identifier: MIT
#include "lexicon/text/charactertables.h"

#include <QString>

#include <algorithm>
#include <array>

namespace teskel
{

namespace
{

struct NamedCharacter {
    char32_t character;
    const char* name;
};

// Ascending, for the search by halves.
constexpr NamedCharacter entities[] = {
    {0x0152, "OElig"},   {0x0153, "oelig"},    {0x0160, "Scaron"},  {0x0161, "scaron"},
    {0x0178, "Yuml"},    {0x0192, "fnof"},     {0x02C6, "circ"},    {0x02DC, "tilde"},
    {0x0391, "Alpha"},   {0x0392, "Beta"},     {0x0393, "Gamma"},   {0x0394, "Delta"},
    {0x0395, "Epsilon"}, {0x0396, "Zeta"},     {0x0397, "Eta"},     {0x0398, "Theta"},
    {0x0399, "Iota"},    {0x039A, "Kappa"},    {0x039B, "Lambda"},  {0x039C, "Mu"},
    {0x039D, "Nu"},      {0x039E, "Xi"},       {0x039F, "Omicron"}, {0x03A0, "Pi"},
    {0x03A1, "Rho"},     {0x03A3, "Sigma"},    {0x03A4, "Tau"},     {0x03A5, "Upsilon"},
    {0x03A6, "Phi"},     {0x03A7, "Chi"},      {0x03A8, "Psi"},     {0x03A9, "Omega"},
    {0x03B1, "alpha"},   {0x03B2, "beta"},     {0x03B3, "gamma"},   {0x03B4, "delta"},
    {0x03B5, "epsilon"}, {0x03B6, "zeta"},     {0x03B7, "eta"},     {0x03B8, "theta"},
    {0x03B9, "iota"},    {0x03BA, "kappa"},    {0x03BB, "lambda"},  {0x03BC, "mu"},
    {0x03BD, "nu"},      {0x03BE, "xi"},       {0x03BF, "omicron"}, {0x03C0, "pi"},
    {0x03C1, "rho"},     {0x03C2, "sigmaf"},   {0x03C3, "sigma"},   {0x03C4, "tau"},
    {0x03C5, "upsilon"}, {0x03C6, "phi"},      {0x03C7, "chi"},     {0x03C8, "psi"},
    {0x03C9, "omega"},   {0x03D1, "thetasym"}, {0x03D2, "upsih"},   {0x03D6, "piv"},
    {0x2002, "ensp"},    {0x2003, "emsp"},     {0x2009, "thinsp"},  {0x200C, "zwnj"},
    {0x200D, "zwj"},     {0x200E, "lrm"},      {0x200F, "rlm"},     {0x2013, "ndash"},
    {0x2014, "mdash"},   {0x2018, "lsquo"},    {0x2019, "rsquo"},   {0x201A, "sbquo"},
    {0x201C, "ldquo"},   {0x201D, "rdquo"},    {0x201E, "bdquo"},   {0x2020, "dagger"},
    {0x2021, "Dagger"},  {0x2022, "bull"},     {0x2026, "hellip"},  {0x2030, "permil"},
    {0x2032, "prime"},   {0x2033, "Prime"},    {0x2039, "lsaquo"},  {0x203A, "rsaquo"},
    {0x203E, "oline"},   {0x2044, "frasl"},    {0x20AC, "euro"},    {0x2111, "image"},
    {0x2118, "weierp"},  {0x211C, "real"},     {0x2122, "trade"},   {0x2135, "alefsym"},
    {0x2190, "larr"},    {0x2191, "uarr"},     {0x2192, "rarr"},    {0x2193, "darr"},
    {0x2194, "harr"},    {0x21B5, "crarr"},    {0x21D0, "lArr"},    {0x21D1, "uArr"},
    {0x21D2, "rArr"},    {0x21D3, "dArr"},     {0x21D4, "hArr"},    {0x2200, "forall"},
    {0x2202, "part"},    {0x2203, "exist"},    {0x2205, "empty"},   {0x2207, "nabla"},
    {0x2208, "isin"},    {0x2209, "notin"},    {0x220B, "ni"},      {0x220F, "prod"},
    {0x2211, "sum"},     {0x2212, "minus"},    {0x2217, "lowast"},  {0x221A, "radic"},
    {0x221D, "prop"},    {0x221E, "infin"},    {0x2220, "ang"},     {0x2227, "and"},
    {0x2228, "or"},      {0x2229, "cap"},      {0x222A, "cup"},     {0x222B, "int"},
    {0x223C, "sim"},     {0x2245, "cong"},     {0x2248, "asymp"},   {0x2260, "ne"},
    {0x2261, "equiv"},   {0x2264, "le"},       {0x2265, "ge"},      {0x2282, "sub"},
    {0x2283, "sup"},     {0x2284, "nsub"},     {0x2286, "sube"},    {0x2287, "supe"},
    {0x2295, "oplus"},   {0x2297, "otimes"},   {0x22A5, "perp"},    {0x22C5, "sdot"},
    {0x2308, "lceil"},   {0x2309, "rceil"},    {0x230A, "lfloor"},  {0x230B, "rfloor"},
    {0x2329, "lang"},    {0x232A, "rang"},     {0x25CA, "loz"},     {0x2660, "spades"},
    {0x2663, "clubs"},   {0x2665, "hearts"},   {0x2666, "diams"},
};

// Characters for which the compatibility decomposition of Unicode has no usable stand-in.
// Ascending.
constexpr NamedCharacter standIns[] = {
    {0x0110, "D"},  {0x0111, "d"},  {0x0126, "H"},  {0x0127, "h"},  {0x0131, "i"},   {0x0138, "k"},
    {0x0141, "L"},  {0x0142, "l"},  {0x014A, "NG"}, {0x014B, "ng"}, {0x0152, "OE"},  {0x0153, "oe"},
    {0x0166, "T"},  {0x0167, "t"},  {0x0192, "f"},  {0x0261, "g"},  {0x02B9, "'"},   {0x02BA, "\""},
    {0x02BC, "'"},  {0x02C8, "'"},  {0x02D0, ":"},  {0x1E9E, "SS"}, {0x200B, ""},    {0x200C, ""},
    {0x200D, ""},   {0x200E, ""},   {0x200F, ""},   {0x2010, "-"},  {0x2011, "-"},   {0x2012, "-"},
    {0x2013, "-"},  {0x2014, "-"},  {0x2015, "-"},  {0x2018, "'"},  {0x2019, "'"},   {0x201A, "'"},
    {0x201B, "'"},  {0x201C, "\""}, {0x201D, "\""}, {0x201E, "\""}, {0x201F, "\""},  {0x2020, "+"},
    {0x2021, "++"}, {0x2022, "*"},  {0x2028, " "},  {0x2029, " "},  {0x2032, "'"},   {0x2033, "\""},
    {0x2039, "'"},  {0x203A, "'"},  {0x2044, "/"},  {0x2060, ""},   {0x20AC, "EUR"}, {0x2192, "->"},
    {0x2212, "-"},  {0x2215, "/"},  {0x2219, "*"},  {0x221E, "oo"}, {0x223C, "~"},   {0xFEFF, ""},
};

constexpr NamedCharacter digitEntities[] = {
    {0x00B9, "sup1"},   {0x00B2, "sup2"},   {0x00B3, "sup3"},   {0x00BC, "frac14"},
    {0x00BD, "frac12"}, {0x00BE, "frac34"}, {0x2234, "there4"},
};

template<std::size_t Size>
const NamedCharacter* search(const NamedCharacter (&table)[Size], char32_t character)
{
    const auto* end = std::end(table);
    const auto* place = std::lower_bound(
        std::begin(table), end, character,
        [](const NamedCharacter& row, char32_t wanted) { return row.character < wanted; });
    return place != end && place->character == character ? place : nullptr;
}

bool isGreekLetter(char32_t character)
{
    return character >= 0x0391 && character <= 0x03C9;
}

/// Base letters, ligatures, wide forms and the like, by Unicode's own tables.
std::optional<std::string> decomposed(char32_t character)
{
    if (QChar::isMark(character))
        return std::string(); // a mark that no letter took up
    if (QChar::category(character) == QChar::Symbol_Math)
        return std::nullopt; // "not equal" is not "equal" without its stroke
    const QString parts =
        QString::fromUcs4(&character, 1).normalized(QString::NormalizationForm_KD);
    std::string text;
    for (const QChar part : parts) {
        if (part.isMark())
            continue;
        if (part.unicode() > 0xFF)
            return std::nullopt;
        text.push_back(part.toLatin1());
    }
    if (text.empty())
        return std::nullopt;
    return text;
}

} // namespace

std::string_view entityName(char32_t character)
{
    const NamedCharacter* row = search(entities, character);
    return row ? row->name : std::string_view();
}

std::optional<std::string> transliteration(char32_t character)
{
    if (const NamedCharacter* row = search(standIns, character))
        return row->name;
    if (isGreekLetter(character)) {
        const std::string_view name = entityName(character);
        if (!name.empty())
            return std::string(name);
    }
    return decomposed(character);
}

char32_t characterOfDigitEntity(std::string_view name)
{
    const auto* row = std::find_if(std::begin(digitEntities), std::end(digitEntities),
                                   [&](const NamedCharacter& each) { return each.name == name; });
    return row != std::end(digitEntities) ? row->character : 0;
}

char32_t windowsCharacter(char32_t character)
{
    constexpr char32_t first = 0x80;
    constexpr std::u32string_view characters = U"€\x81‚ƒ„…†‡ˆ‰Š‹Œ\x8DŽ\x8F\x90‘’“”•–—˜™š›œ\x9DžŸ";
    static_assert(characters.size() == 32);
    const bool isInTable = character >= first && character - first < characters.size();
    return isInTable ? characters[character - first] : character;
}

} // namespace teskel
