// SPDX-License-Identifier: MIT
#include "lexicon/text/utf8.h"

#include <QString>

namespace teskel::utf8
{

namespace
{

unsigned byteAt(std::string_view text, size_t position)
{
    return static_cast<unsigned char>(text[position]);
}

/// Combining marks from U+0300 to U+036F begin with 0xCC or 0xCD; rarer ones with 0xE0 or more.
bool mayNeedComposing(std::string_view text)
{
    for (size_t i = 0; i < text.size(); ++i) {
        const unsigned byte = byteAt(text, i);
        if (byte == 0xCC || byte == 0xCD)
            return true;
    }
    return false;
}

} // namespace

char32_t next(std::string_view text, size_t& position)
{
    const unsigned lead = byteAt(text, position++);
    if (lead < 0x80)
        return lead;
    unsigned following = 0;
    char32_t character = 0;
    char32_t smallest = 0;
    if (lead >= 0xC2 && lead <= 0xDF) {
        following = 1;
        character = lead & 0x1F;
        smallest = 0x80;
    } else if (lead >= 0xE0 && lead <= 0xEF) {
        following = 2;
        character = lead & 0x0F;
        smallest = 0x800;
    } else if (lead >= 0xF0 && lead <= 0xF4) {
        following = 3;
        character = lead & 0x07;
        smallest = 0x10000;
    } else {
        return invalid;
    }
    if (text.size() - position < following)
        return invalid;
    for (unsigned i = 0; i < following; ++i) {
        const unsigned byte = byteAt(text, position + i);
        if ((byte & 0xC0) != 0x80)
            return invalid;
        character = character << 6 | (byte & 0x3F);
    }
    const bool isSurrogate = character >= 0xD800 && character <= 0xDFFF;
    if (character < smallest || character > 0x10FFFF || isSurrogate)
        return invalid;
    position += following;
    return character;
}

void append(std::string& out, char32_t character)
{
    const auto put = [&out](char32_t byte) {
        out.push_back(static_cast<char>(static_cast<unsigned char>(byte)));
    };
    if (character < 0x80) {
        put(character);
    } else if (character < 0x800) {
        put(0xC0 | character >> 6);
        put(0x80 | (character & 0x3F));
    } else if (character < 0x10000) {
        put(0xE0 | character >> 12);
        put(0x80 | (character >> 6 & 0x3F));
        put(0x80 | (character & 0x3F));
    } else {
        put(0xF0 | character >> 18);
        put(0x80 | (character >> 12 & 0x3F));
        put(0x80 | (character >> 6 & 0x3F));
        put(0x80 | (character & 0x3F));
    }
}

std::string fromLatin1(std::string_view latin1)
{
    std::string text;
    text.reserve(latin1.size() + latin1.size() / 16);
    for (const char byte : latin1)
        append(text, static_cast<unsigned char>(byte));
    return text;
}

std::string composed(std::string_view text)
{
    if (!mayNeedComposing(text))
        return std::string(text);
    const QString decoded = QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
    // Bytes that are no UTF-8 must stay recognisable as such for the converter's count.
    if (decoded.contains(QChar::ReplacementCharacter))
        return std::string(text);
    return decoded.normalized(QString::NormalizationForm_C).toStdString();
}

} // namespace teskel::utf8
