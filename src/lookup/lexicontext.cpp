// SPDX-License-Identifier: MIT
#include "lookup/lexicontext.h"

#include "dictionary/cursorposition.h"
#include "dictionary/dictionary.h"
#include "script/composition.h"
#include "script/transliteration.h"

#include <algorithm>

namespace teskel
{

namespace
{

/// No headword is as long, and few scripts take several characters for a Latin letter: what stands
/// behind them changes nothing but the time that a key takes.
constexpr qsizetype mostConverted = 4096;

QString askedInLatin1(const QString& text)
{
    if (text.size() <= mostConverted || lexiconLength(text) == text.size())
        return inLatin1(text);
    return inLatin1(text.first(mostConverted));
}

} // namespace

QStringList askedWords(const QString& text)
{
    QString word;
    word.reserve(text.size());
    bool followsControl = false;
    bool hasControl = false;
    for (const QChar character : askedInLatin1(text)) {
        const bool isControl = character.category() == QChar::Other_Control && !character.isNull();
        if (!isControl)
            word += character;
        else if (!followsControl)
            word += u' ';
        followsControl = isControl;
        hasControl |= isControl;
    }
    const QString bare = word.trimmed();
    if (bare.isEmpty())
        return {};
    return hasControl || bare == word ? QStringList{bare} : QStringList{word, bare};
}

qsizetype lexiconLength(const QString& text)
{
    const auto end = std::find_if(text.cbegin(), text.cend(), [](QChar character) {
        return character.unicode() == 0 || character.unicode() > 0xFF;
    });
    return end - text.cbegin();
}

std::optional<QByteArray> toLexiconBytes(const QString& text)
{
    if (lexiconLength(text) < text.size())
        return std::nullopt;
    return text.toLatin1();
}

QString withoutOuterPunctuation(const QString& text)
{
    const auto isWordCharacter = [](QChar character) {
        return !character.isPunct() && !character.isSpace();
    };
    const auto first = std::find_if(text.cbegin(), text.cend(), isWordCharacter);
    const auto last = std::find_if(text.crbegin(), text.crend(), isWordCharacter);
    if (first == text.cend())
        return QString();
    return text.mid(first - text.cbegin(), last.base() - first);
}

std::optional<QString> knownPart(Dictionary& dictionary, const QString& text)
{
    const auto holds = [&dictionary](const QByteArray& word, bool prefix) {
        return !dictionary.findWord(word.constData(), CursorPosition::invalid(), prefix)
                    .isInvalid();
    };
    const QString asked = askedInLatin1(text);
    if (const auto word = toLexiconBytes(asked); word && holds(*word, false))
        return composed(text);

    qsizetype length = std::min(lexiconLength(asked), std::max<qsizetype>(asked.size() - 1, 0));
    QByteArray beginning = asked.first(length).toLatin1();
    for (; length >= 0; --length) {
        beginning.truncate(length);
        if (holds(beginning, true))
            return asked.first(length);
    }
    return std::nullopt;
}

} // namespace teskel
