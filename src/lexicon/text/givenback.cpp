// SPDX-License-Identifier: MIT
#include "lexicon/text/givenback.h"

#include "lexicon/text/articlewalk.h"
#include "lexicon/text/sensenumbers.h"
#include "lexicon/text/storedarticle.h"
#include "lexicon/text/utf8.h"
#include "script/letterreference.h"

#include <QString>

#include <optional>

namespace teskel::givenback
{

namespace
{

constexpr char32_t highestOfLatin1 = 0xFF;

enum class Digits { Given, Kept };
/// References to marks, and to what else composition would change or join with what is before it.
enum class Joining { Given, Kept };

/// Whether composition may change `character` behind the text `before`, UTF-8.
bool isJoining(std::string_view before, char32_t character)
{
    if (QChar::combiningClass(character) > 0)
        return true;
    size_t last = before.size();
    while (last > 0 && (static_cast<unsigned char>(before[--last]) & 0xC0) == 0x80) {
    }
    const std::string pair = std::string(before.substr(last)) + utf8::encoded({&character, 1});
    const QString text = QString::fromStdString(pair);
    return text.normalized(QString::NormalizationForm_C) != text;
}

/// The character of a reference that a build writes for it; 0 for any other reference.
char32_t givenCharacter(std::string_view reference, Digits digits)
{
    const char32_t character = readLetterReference(reference).character;
    const bool isWritten = character > highestOfLatin1 ||
                           (digits == Digits::Given && sensenumbers::isSenseDigit(character));
    return isWritten && letterReference(character) == reference ? character : 0;
}

/// Text without line beginnings, such as a tag.
std::string given(std::string_view latin1, Digits digits, Joining joining)
{
    std::string result;
    size_t done = 0;
    for (size_t at = latin1.find("&_"); at != std::string_view::npos;) {
        const size_t length = readLetterReference(latin1.substr(at)).length;
        const char32_t character = givenCharacter(latin1.substr(at, length), digits);
        if (character != 0) {
            result += utf8::fromLatin1(latin1.substr(done, at - done));
            done = at;
        }
        if (character != 0 && (joining == Joining::Given || !isJoining(result, character))) {
            result += utf8::encoded({&character, 1});
            done = at + length;
        }
        at = latin1.find("&_", at + 1);
    }
    return result += utf8::fromLatin1(latin1.substr(done));
}

std::string givenArticle(std::string_view latin1, Joining joining)
{
    std::string result;
    size_t done = 0; // bytes that stand for themselves are taken over in one piece
    ArticleWalk walk(latin1);
    for (ArticleWalk::Step step; walk.next(step);) {
        if (step.kind == ArticleWalk::Kind::Text)
            continue;
        const size_t begin = step.end - step.text.size();
        result += utf8::fromLatin1(latin1.substr(done, begin - done));
        const char32_t character = givenCharacter(step.text, Digits::Given);
        const bool wouldBeSense = step.atLineStart && sensenumbers::isSenseDigit(character) &&
                                  latin1.substr(step.end).starts_with('.');
        if (step.kind == ArticleWalk::Kind::Tag)
            result += given(step.text, Digits::Given, joining);
        else if (character == 0 || wouldBeSense ||
                 (joining == Joining::Kept && isJoining(result, character)))
            result += step.text;
        else
            result += utf8::encoded({&character, 1});
        done = step.end;
    }
    return result += utf8::fromLatin1(latin1.substr(done));
}

/// An article whose references are all to characters that a build writes the same way wherever they
/// stand: nothing needs to be tried then. None for any other article.
std::optional<std::string> givenSteadily(std::string_view latin1)
{
    std::string result;
    size_t done = 0;
    for (size_t at = latin1.find("&_"); at != std::string_view::npos;
         at = latin1.find("&_", at + 1)) {
        const LetterReference reference = readLetterReference(latin1.substr(at));
        const std::string_view text = latin1.substr(at, reference.length);
        const char32_t character = givenCharacter(text, Digits::Given);
        if (character == 0)
            continue;
        if (character <= highestOfLatin1 || utf8::mayCombine(character))
            return std::nullopt;
        result += utf8::fromLatin1(latin1.substr(done, at - done));
        utf8::append(result, character);
        done = at + text.size();
    }
    return result += utf8::fromLatin1(latin1.substr(done));
}

} // namespace

std::string article(std::string_view latin1)
{
    if (auto result = givenSteadily(latin1))
        return *std::move(result);
    const auto isBuiltAgain = [latin1](std::string_view text) {
        Latin1Converter converter;
        return storedArticle(converter, text, Latin1Converter::Text::MarkupArticle) == latin1;
    };
    std::string result = givenArticle(latin1, Joining::Given);
    if (isBuiltAgain(result))
        return result;
    for (const std::string& careful :
         {givenArticle(latin1, Joining::Kept), utf8::fromLatin1(latin1)}) {
        if (isBuiltAgain(careful))
            return careful;
    }
    return result;
}

std::string description(std::string_view latin1)
{
    if (!hasReferences(latin1))
        return utf8::fromLatin1(latin1);
    std::string result = given(latin1, Digits::Kept, Joining::Given);
    const std::string again =
        Latin1Converter().converted(result, Latin1Converter::Text::MarkupArticle);
    return again == latin1 ? result : utf8::fromLatin1(latin1);
}

bool hasReferences(std::string_view latin1)
{
    for (size_t at = latin1.find("&_"); at != std::string_view::npos;
         at = latin1.find("&_", at + 1)) {
        if (readLetterReference(latin1.substr(at)).length > 0)
            return true;
    }
    return false;
}

} // namespace teskel::givenback
