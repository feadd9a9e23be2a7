// SPDX-License-Identifier: MIT
#include "lexicon/text/utf8.h"

#include <QString>
#include <QStringDecoder>

#include <algorithm>

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

/// Whether a character may join the one before it, or change places with it.
bool mayCombine(char32_t character)
{
    constexpr char32_t firstMark = 0x300;
    constexpr char32_t firstJamo = 0x1100; // the parts of Hangul syllables
    constexpr char32_t lastJamo = 0x11FF;
    return character >= firstMark &&
           (QChar::isMark(character) || (character >= firstJamo && character <= lastJamo));
}

} // namespace

std::string_view withoutByteOrderMark(std::string_view text)
{
    return text.starts_with(byteOrderMark) ? text.substr(byteOrderMark.size()) : text;
}

std::u32string decoded(std::string_view text)
{
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
    if (std::any_of(characters.begin(), characters.end(), mayCombine) &&
        characters.find(invalid) == std::u32string::npos)
        characters = toUtf16(text).normalized(QString::NormalizationForm_C).toStdU32String();
    return characters;
}

std::string encoded(std::u32string_view characters)
{
    QString text;
    for (const char32_t character : characters)
        text += QChar::fromUcs4(character == invalid ? replacement : character);
    return text.toStdString();
}

std::string fromLatin1(std::string_view latin1)
{
    return QString::fromLatin1(latin1.data(), static_cast<qsizetype>(latin1.size())).toStdString();
}

} // namespace teskel::utf8
