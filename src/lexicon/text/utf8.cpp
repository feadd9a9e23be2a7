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

/// The common combining marks, and the few Greek signs that share their first byte.
bool mayCombine(QChar character)
{
    return character >= QChar(0x0300) && character <= QChar(0x037F);
}

} // namespace

std::string_view withoutByteOrderMark(std::string_view text)
{
    return text.starts_with(byteOrderMark) ? text.substr(byteOrderMark.size()) : text;
}

std::u32string decoded(std::string_view text)
{
    return toUtf16(text).toStdU32String();
}

std::u32string composed(std::string_view text)
{
    QString characters = toUtf16(text);
    if (std::any_of(characters.cbegin(), characters.cend(), mayCombine) &&
        !characters.contains(QChar::ReplacementCharacter))
        characters = characters.normalized(QString::NormalizationForm_C);
    return characters.toStdU32String();
}

std::string encoded(std::u32string_view characters)
{
    QString text;
    for (const char32_t character : characters)
        text += QChar::fromUcs4(character);
    return text.toStdString();
}

std::string fromLatin1(std::string_view latin1)
{
    return QString::fromLatin1(latin1.data(), static_cast<qsizetype>(latin1.size())).toStdString();
}

} // namespace teskel::utf8
