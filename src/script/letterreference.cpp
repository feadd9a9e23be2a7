// SPDX-License-Identifier: MIT
#include "script/letterreference.h"

#include <QChar>
#include <QLatin1StringView>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace teskel
{

namespace
{

constexpr char32_t highestCharacter = 0x10FFFF;
constexpr std::size_t mostDigits = 6;
constexpr qsizetype introLength = 2;

constexpr bool isBetween(char32_t character, char32_t first, char32_t last)
{
    return character >= first && character <= last;
}

constexpr bool isControl(char32_t character)
{
    return character < 0x20 || isBetween(character, 0x7F, 0x9F);
}

/// Ends a line, or turns the writing of all that follows.
constexpr bool disturbsParagraph(char32_t character)
{
    return isBetween(character, 0x2028, 0x2029) || isBetween(character, 0x202D, 0x202E) ||
           isBetween(character, 0x2066, 0x2069);
}

/// @param text  a string view of 8-bit, 16-bit or 32-bit characters
template<typename Text>
LetterReference read(Text text)
{
    const auto length = static_cast<std::size_t>(text.size());
    if (length < introLength || text[0] != '&' || text[1] != '_')
        return {};
    std::size_t at = introLength;
    while (at < length && text[at] == 'a')
        ++at;
    const std::size_t digits = at;
    char32_t character = 0;
    for (; at < length && text[at] >= 'a' && text[at] <= 'p'; ++at) {
        if (at - digits == mostDigits)
            return {};
        character = character << 4 | static_cast<char32_t>(text[at] - 'a');
    }
    if (at == introLength || at == length || text[at] != ';')
        return {};
    return {isShowable(character) ? character : char32_t{QChar::ReplacementCharacter}, at + 1};
}

void appendAsText(QString& markup, char32_t character)
{
    switch (character) {
    case U'<':
        markup += "&lt;"_L1;
        break;
    case U'>':
        markup += "&gt;"_L1;
        break;
    case U'&':
        markup += "&amp;"_L1;
        break;
    case U'"':
        markup += "&quot;"_L1;
        break;
    case U'\'':
        markup += "&apos;"_L1;
        break;
    default:
        markup += QChar::fromUcs4(character);
        break;
    }
}

} // namespace

bool isShowable(char32_t character)
{
    return character <= highestCharacter && !isControl(character) &&
           !disturbsParagraph(character) && !QChar::isSurrogate(character) &&
           !QChar::isNonCharacter(character);
}

std::string hexadecimalLetters(char32_t character)
{
    char letters[2 * sizeof character];
    char* const end = std::end(letters);
    char* first = end;
    do {
        *--first = static_cast<char>('a' + (character & 0xF));
        character >>= 4;
    } while (character != 0);
    return {first, end};
}

std::string letterReference(char32_t character)
{
    return "&_" + hexadecimalLetters(character) + ";";
}

LetterReference readLetterReference(std::string_view text)
{
    return read(text);
}

LetterReference readLetterReference(std::u32string_view text)
{
    return read(text);
}

QString withLetterReferencesResolved(const QString& markup)
{
    const auto intro = "&_"_L1;
    qsizetype at = markup.indexOf(intro);
    if (at < 0)
        return markup;

    QString resolved;
    resolved.reserve(markup.size());
    qsizetype done = 0;
    while (at >= 0) {
        const QStringView rest = QStringView(markup).sliced(at);
        const LetterReference reference =
            read(std::u16string_view(rest.utf16(), static_cast<std::size_t>(rest.size())));
        resolved += QStringView(markup).sliced(done, at - done);
        done = at;
        if (reference.length > 0) {
            appendAsText(resolved, reference.character);
            done += static_cast<qsizetype>(reference.length);
        }
        at = markup.indexOf(intro, std::max(done, at + introLength));
    }
    resolved += QStringView(markup).sliced(done);
    return resolved;
}

} // namespace teskel
