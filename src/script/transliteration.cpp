// SPDX-License-Identifier: MIT
#include "script/transliteration.h"

#include "script/composition.h"
#include "script/letterreference.h"
#include "script/romanizer.h"

#include <QLatin1StringView>
#include <QList>
#include <QStringView>

#include <algorithm>
#include <array>
#include <utility>

using namespace Qt::StringLiterals;

namespace teskel
{

namespace
{

constexpr QChar microSign{0xB5};
constexpr QChar greekMu{0x3BC};

/// What a keyboard has for a character, and the rules have not.
struct Equivalent {
    char16_t character;
    QLatin1StringView typed;
};

constexpr std::array equivalents{
    Equivalent{0x02BC, "'"_L1},
    Equivalent{0x2018, "'"_L1},
    Equivalent{0x2019, "'"_L1},
    Equivalent{0x20AC, "EUR"_L1},
};

const Equivalent* equivalentOf(QChar character)
{
    const auto* const row =
        std::find_if(equivalents.begin(), equivalents.end(),
                     [character](const Equivalent& known) { return known.character == character; });
    return row == equivalents.end() ? nullptr : row;
}

bool isForeign(QChar character)
{
    return character.unicode() > 0xFF;
}

bool isForTheRules(QChar character)
{
    return isForeign(character) && equivalentOf(character) == nullptr;
}

bool isLatin1(QStringView text)
{
    return std::none_of(text.begin(), text.end(), isForeign);
}

/// Beside a Greek letter, the sign of Latin-1 is meant as the letter.
QString withGreekMu(QString text)
{
    if (!text.contains(microSign))
        return text;
    const auto isGreek = [](QChar character) { return character.script() == QChar::Script_Greek; };
    for (qsizetype at = 1; at < text.size(); ++at) {
        if (text.at(at) == microSign && isGreek(text.at(at - 1)))
            text[at] = greekMu;
    }
    for (qsizetype at = text.size() - 1; at > 0; --at) {
        if (text.at(at - 1) == microSign && isGreek(text.at(at)))
            text[at - 1] = greekMu;
    }
    return text;
}

/// @param word text without white space
void appendWord(QString& result, QStringView word)
{
    if (isLatin1(word)) {
        result += word;
        return;
    }
    QString letters;
    for (qsizetype at = 0; at < word.size();) {
        if (const auto* const equivalent = equivalentOf(word[at])) {
            letters += equivalent->typed;
            ++at;
            continue;
        }
        const bool isRun = isForTheRules(word[at]);
        const auto* const end =
            std::find_if(word.begin() + at, word.end(), [isRun](QChar character) {
                return isForTheRules(character) != isRun || equivalentOf(character) != nullptr;
            });
        const QStringView part = word.sliced(at, end - word.begin() - at);
        letters += isRun ? Romanizer::ofLexicons().romanized(part) : part.toString();
        at += part.size();
    }
    letters = std::move(letters).simplified();
    const QList<uint> characters = word.toUcs4();
    const bool isVisible = std::any_of(characters.begin(), characters.end(), isShowable);
    result += letters.isEmpty() && isVisible ? Romanizer::codePoints(word) : letters;
}

} // namespace

QString inLatin1(const QString& text)
{
    if (isLatin1(text))
        return text;
    const QString whole = withGreekMu(composed(text));
    QString result;
    result.reserve(whole.size());
    const auto isBlank = [](QChar character) { return character.isSpace(); };
    const auto* at = whole.cbegin();
    while (at != whole.cend()) {
        const auto* const word = std::find_if_not(at, whole.cend(), isBlank);
        for (; at != word; ++at)
            result += isForeign(*at) ? QChar(u' ') : *at;
        at = std::find_if(word, whole.cend(), isBlank);
        appendWord(result, QStringView(word, at));
    }
    return result;
}

} // namespace teskel
