// SPDX-License-Identifier: MIT
#include "script/composition.h"

#include <QChar>

#include <unicode/normalizer2.h>
#include <unicode/unistr.h>

namespace teskel
{

namespace
{

constexpr int mostMarks = 30;
constexpr char16_t joiner = 0x034F; // belongs to what is before it, and nothing passes it

/// How the canonical decomposition of a character begins and ends.
struct Marks {
    int before = 0; ///< marks at the beginning
    int behind = 0; ///< marks at the end
    bool isAll = false;
};

Marks marksOf(const icu::Normalizer2& composer, UChar32 character)
{
    icu::UnicodeString parts;
    if (!composer.getDecomposition(character, parts))
        parts.setTo(character);
    Marks marks;
    marks.isAll = true;
    for (int32_t at = 0; at < parts.length(); at = parts.moveIndex32(at, 1)) {
        if (composer.getCombiningClass(parts.char32At(at)) != 0) {
            ++marks.behind;
            marks.before += marks.isAll ? 1 : 0;
        } else {
            marks.behind = 0;
            marks.isAll = false;
        }
    }
    return marks;
}

/// No character becomes more than three marks behind a letter, and no mark more than two.
bool mayHaveTooManyMarks(const icu::UnicodeString& text)
{
    constexpr int few = (mostMarks - 3) / 2;
    int marks = 0;
    for (int32_t at = 0; at < text.length() && marks <= few; at = text.moveIndex32(at, 1)) {
        const auto character = static_cast<char32_t>(text.char32At(at));
        marks = character >= 0x300 && QChar::isMark(character) ? marks + 1 : 0;
    }
    return marks > few;
}

icu::UnicodeString withJoiners(const icu::Normalizer2& composer, const icu::UnicodeString& text)
{
    icu::UnicodeString result;
    int count = 0;
    for (int32_t at = 0; at < text.length(); at = text.moveIndex32(at, 1)) {
        const UChar32 character = text.char32At(at);
        const Marks marks = marksOf(composer, character);
        if (count + marks.before > mostMarks) {
            result.append(joiner);
            count = 0;
        }
        count = marks.isAll ? count + marks.behind : marks.behind;
        result.append(character);
    }
    return result;
}

} // namespace

QString composed(const QString& text)
{
    UErrorCode status = U_ZERO_ERROR;
    const icu::Normalizer2* const composer = icu::Normalizer2::getNFCInstance(status);
    if (U_FAILURE(status) || composer == nullptr)
        return text;
    const QStringView view(text);
    icu::UnicodeString source(view.utf16(), static_cast<int32_t>(view.size()));
    if (mayHaveTooManyMarks(source))
        source = withJoiners(*composer, source);
    const icu::UnicodeString result = composer->normalize(source, status);
    return U_SUCCESS(status)
               ? QStringView(result.getBuffer(), static_cast<qsizetype>(result.length())).toString()
               : text;
}

} // namespace teskel
