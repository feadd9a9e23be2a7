// SPDX-License-Identifier: MIT
#include "script/romanizer.h"

#include "script/letterreference.h"

#include <QList>
#include <QtGlobal>

#include <algorithm>
#include <utility>

#include <unicode/translit.h>
#include <unicode/unistr.h>

namespace teskel
{

namespace
{

/// A filter at the head would hold for the whole chain, hence NFC first. The vowel signs of Arabic
/// and the points of Hebrew are written in some books only. What Any-Latin writes for a soft sign,
/// for ayin or between two letters nobody types; so it goes before the rest becomes ASCII.
constexpr auto lexiconRules = R"(NFC;
[[:Mn:] & [\u0590-\u06FF\u0750-\u077F\u08A0-\u08FF]] Remove;
[:Cyrillic:] Russian-Latin/BGN;
Any-Latin;
[\u00B7\u02B0-\u02FF'"\u2018\u2019] Remove;
Latin-ASCII;
[^\u0000-\u00FF] Remove)";

/// How much of a text is changed at once: the rules take time by the square of the length. No word
/// of any language is as long; what is ends where no character is divided and, as far as there are
/// not hundreds of them, no mark follows.
qsizetype partLength(QStringView text)
{
    constexpr qsizetype usual = 1024;
    constexpr qsizetype longest = usual + 256;
    qsizetype length = std::min(usual, text.size());
    while (length < text.size() &&
           (text[length].isLowSurrogate() || (length < longest && text[length].isMark())))
        ++length;
    return length;
}

} // namespace

struct Romanizer::Rules {
    std::unique_ptr<icu::Transliterator> chain;
};

Romanizer::Romanizer(const char* id)
{
    UErrorCode status = U_ZERO_ERROR;
    UParseError place;
    std::unique_ptr<icu::Transliterator> chain(icu::Transliterator::createInstance(
        icu::UnicodeString::fromUTF8(id), UTRANS_FORWARD, place, status));
    if (U_SUCCESS(status) && chain)
        _rules = std::make_unique<const Rules>(Rules{std::move(chain)});
    else
        qWarning("Other scripts are not written in Latin letters: ICU reports %s",
                 u_errorName(status));
}

Romanizer::~Romanizer() = default;

const Romanizer& Romanizer::ofLexicons()
{
    static const Romanizer romanizer(lexiconRules);
    return romanizer;
}

QString Romanizer::romanized(QStringView text) const
{
    if (!_rules)
        return codePoints(text);
    QString letters;
    while (!text.isEmpty()) {
        const QStringView part = text.first(partLength(text));
        icu::UnicodeString changed(part.utf16(), static_cast<int32_t>(part.size()));
        _rules->chain->transliterate(changed);
        letters += QStringView(changed.getBuffer(), changed.length());
        text = text.sliced(part.size());
    }
    return letters;
}

QString Romanizer::codePoints(QStringView text)
{
    QString letters;
    for (const char32_t character : text.toUcs4())
        letters += QString::fromStdString(hexadecimalLetters(character));
    return letters;
}

} // namespace teskel
