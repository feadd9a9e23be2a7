// SPDX-License-Identifier: MIT
#include "lexicon/text/utf8.h"

#include "script/composition.h"

#include <QString>
#include <QStringDecoder>

#include <algorithm>
#include <array>

#include <unicode/utf8.h>

namespace teskel::utf8
{

namespace
{

QString toUtf16(std::string_view text)
{
    using Flag = QStringDecoder::Flag;
    // A mark of byte order is a character like any other, and nothing follows the end.
    QStringDecoder decoder(QStringDecoder::Utf8, Flag::ConvertInitialBom | Flag::Stateless);
    return decoder(QByteArrayView(text.data(), static_cast<qsizetype>(text.size())));
}

bool isAsciiByte(char byte)
{
    return static_cast<unsigned char>(byte) < 0x80;
}

bool isAscii(std::string_view text)
{
    return std::all_of(text.begin(), text.end(), isAsciiByte);
}

} // namespace

#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wconversion" // within ICU's macro
std::size_t wellFormedLength(std::string_view text)
{
    std::size_t place = 0;
    while (place < text.size()) {
        std::size_t next = place;
        UChar32 character = 0;
        U8_NEXT(text.data(), next, text.size(), character);
        if (character < 0)
            break;
        place = next;
    }
    return place;
}
#pragma GCC diagnostic pop

bool isCut(std::string_view text)
{
    std::size_t complete = text.size();
    U8_TRUNCATE_IF_INCOMPLETE(text.data(), std::size_t{0}, complete);
    return complete == 0 && !text.empty();
}

std::string_view withoutByteOrderMark(std::string_view text)
{
    return text.starts_with(byteOrderMark) ? text.substr(byteOrderMark.size()) : text;
}

bool mayCombine(char32_t character)
{
    constexpr char32_t firstMark = 0x300;
    constexpr char32_t firstJamo = 0x1100; // the parts of Hangul syllables
    constexpr char32_t lastJamo = 0x11FF;
    return character >= firstMark &&
           (QChar::isMark(character) || (character >= firstJamo && character <= lastJamo));
}

std::u32string decoded(std::string_view text)
{
    if (isAscii(text))
        return {text.begin(), text.end()};
    constexpr std::string_view written = "\xEF\xBF\xBD";
    std::u32string characters = toUtf16(text).toStdU32String();
    if (characters.find(replacement) == std::u32string::npos)
        return characters;
    // The decoder tells the sign for damage from damage by nothing but its bytes.
    characters.clear();
    while (true) {
        const size_t place = text.find(written);
        std::u32string part = toUtf16(text.substr(0, place)).toStdU32String();
        std::replace(part.begin(), part.end(), replacement, invalid);
        characters += part;
        if (place == std::string_view::npos)
            return characters;
        characters += replacement;
        text.remove_prefix(place + written.size());
    }
}

std::u32string composed(std::string_view text)
{
    std::u32string characters = decoded(text);
    const bool isToCompose = std::any_of(characters.begin(), characters.end(), mayCombine) &&
                             characters.find(invalid) == std::u32string::npos;
    if (!isToCompose)
        return characters;
    const auto size = static_cast<qsizetype>(characters.size());
    return teskel::composed(QString::fromUcs4(characters.data(), size)).toStdU32String();
}

std::string encoded(std::u32string_view characters)
{
    if (std::all_of(characters.begin(), characters.end(), [](char32_t c) { return c < 0x80; }))
        return {characters.begin(), characters.end()};
    QString text;
    for (const char32_t character : characters)
        text += QChar::fromUcs4(character == invalid ? replacement : character);
    return text.toStdString();
}

void append(std::string& text, char32_t character)
{
    std::array<char, U8_MAX_LENGTH> bytes{};
    std::size_t length = 0;
    U8_APPEND_UNSAFE(bytes, length, character);
    text.append(bytes.data(), length);
}

std::string fromLatin1(std::string_view latin1)
{
    std::string text;
    text.reserve(latin1.size() + latin1.size() / 8);
    for (const auto* at = latin1.begin(); at != latin1.end();) {
        const auto* const end = std::find_if_not(at, latin1.end(), isAsciiByte);
        text.append(at, end);
        at = end;
        if (at != latin1.end())
            append(text, static_cast<unsigned char>(*at++));
    }
    return text;
}

} // namespace teskel::utf8
