// SPDX-License-Identifier: MIT
#include "lexicon/text/latin1converter.h"

#include "lexicon/text/characterreference.h"
#include "lexicon/text/charactertables.h"
#include "lexicon/text/sensenumbers.h"
#include "lexicon/text/utf8.h"
#include "script/letterreference.h"
#include "script/transliteration.h"

#include <QString>

#include <algorithm>

namespace teskel
{

namespace
{

constexpr std::string_view unknown = "?";
constexpr char32_t highestOfLatin1 = 0xFF;

bool isControl(char32_t character)
{
    return character < 0x20 || (character >= 0x7F && character <= 0x9F);
}

bool isBlank(char32_t character)
{
    return character == ' ' || isControl(character);
}

bool isWhiteSpace(char32_t character)
{
    return character == ' ' || character == '\t' || character == '\n' || character == '\r';
}

bool isLatin1(std::u32string_view text)
{
    return std::all_of(text.begin(), text.end(),
                       [](char32_t character) { return character <= highestOfLatin1; });
}

/// Whether rich text of a lexicon holds the character as it is, wherever it stands.
bool isOrdinary(char32_t character)
{
    return (character >= 0x20 && character < 0x7F && character != U'&' && character != U'<') ||
           (character > 0x9F && character <= highestOfLatin1);
}

/// Appends text of Latin-1 characters.
void appendLatin1(std::u32string_view text, std::string& out)
{
    const size_t begin = out.size();
    out.resize(begin + text.size());
    std::transform(text.begin(), text.end(), out.begin() + static_cast<std::ptrdiff_t>(begin),
                   [](char32_t character) {
                       return static_cast<char>(static_cast<unsigned char>(character));
                   });
}

/// Single blanks, none at the ends; "?" for what is no UTF-8.
std::u32string tidied(std::u32string_view text)
{
    std::u32string result;
    bool blankPending = false;
    for (const char32_t character : text) {
        if (isBlank(character)) {
            blankPending = !result.empty();
            continue;
        }
        if (blankPending)
            result += U' ';
        blankPending = false;
        result += character == utf8::invalid ? U'?' : character;
    }
    return result;
}

} // namespace

void Latin1Converter::convert(std::string_view text, Text kind, std::string& out)
{
    std::u32string whole = utf8::composed(text);
    if (kind == Text::Headword)
        convertHeadword(std::move(whole), out);
    else
        convertArticle(whole, kind == Text::MarkupArticle, out);
}

std::string Latin1Converter::converted(std::string_view text, Text kind)
{
    std::string result;
    convert(text, kind, result);
    return result;
}

std::string Latin1Converter::asWritten(std::string_view headword)
{
    std::u32string characters = utf8::composed(headword);
    std::transform(characters.begin(), characters.end(), characters.begin(), windowsCharacter);
    return utf8::encoded(tidied(characters));
}

void Latin1Converter::convertHeadword(std::u32string text, std::string& out)
{
    for (char32_t& character : text)
        character = asMeant(character);
    for (const char32_t character : text) {
        if (isControl(character) && !isWhiteSpace(character))
            count(character, Change::Control, " ");
    }
    if (_form == LatinForm::Plain) {
        convertPlainHeadword(text, out);
        return;
    }
    for (const char32_t character : text) {
        if (character == utf8::invalid)
            count(character, Change::InvalidByte, unknown);
    }
    std::u32string word = tidied(text);
    if (!isLatin1(word)) {
        const QString latin = inLatin1(QString::fromUcs4(word.data(), std::ssize(word)));
        word = tidied(latin.toStdU32String());
    }
    appendLatin1(word, out);
}

void Latin1Converter::convertPlainHeadword(std::u32string_view text, std::string& out)
{
    const size_t begin = out.size();
    bool blankPending = false;
    for (const char32_t character : text) {
        if (isBlank(character)) {
            blankPending = true;
            continue;
        }
        const auto isBehindBlank = [&] { return out.size() == begin || out.back() == ' '; };
        if (blankPending && !isBehindBlank())
            out += ' ';
        blankPending = false;
        const bool needsNoBlank = isBehindBlank();
        const size_t end = out.size();
        putStandIn(character, false, out);
        if (needsNoBlank && out.size() == end + 1 && out.back() == ' ') // that of a wide blank
            out.pop_back();
    }
    while (out.size() > begin && out.back() == ' ')
        out.pop_back();
}

void Latin1Converter::convertArticle(std::u32string_view text, bool isMarkup, std::string& out)
{
    out.reserve(out.size() + text.size());
    for (size_t position = 0; position < text.size(); ++position) {
        const auto run = text.begin() + static_cast<std::ptrdiff_t>(position);
        const auto end = std::find_if_not(run, text.end(), isOrdinary);
        appendLatin1({run, end}, out);
        position += static_cast<size_t>(end - run);
        if (end == text.end())
            break;
        const char32_t character = *end;
        if (character == U'&' && isMarkup && _form == LatinForm::Plain &&
            readLetterReference(text.substr(position)).length > 0) {
            position += putReferred(text.substr(position), out) - 1;
        } else if (character == U'&' && isMarkup) {
            const CharacterReference reference = readDigitReference(text.substr(position));
            if (reference.length == 0) {
                out += '&';
            } else {
                position += reference.length - 1;
                if (_form == LatinForm::LetterReferences &&
                    sensenumbers::isSenseDigit(reference.character))
                    out += letterReference(reference.character);
                else
                    putAsText(reference.character, out);
            }
        } else if (character == U'&') {
            out += "&amp;";
        } else if (character == U'<' && !isMarkup) {
            out += "&lt;";
        } else {
            putCharacter(character, out);
        }
    }
}

/// Puts the character of the letter reference that `text` begins with, and tells its length.
size_t Latin1Converter::putReferred(std::u32string_view text, std::string& out)
{
    const LetterReference reference = readLetterReference(text);
    putAsText(reference.character, out);
    const size_t bracket = out.find_last_of("<>");
    const bool isInTag = bracket != std::string::npos && out[bracket] == '<';
    if (sensenumbers::isSenseDigit(reference.character) && !isInTag &&
        text.substr(reference.length).starts_with(U'.'))
        out += sensenumbers::separator;
    return reference.length;
}

void Latin1Converter::putAsText(char32_t character, std::string& out)
{
    if (character == '<' || character == '&')
        out += escapedMarkup(std::string(1, static_cast<char>(character)));
    else
        putCharacter(character, out);
}

/// In place of a control character of Windows-1252 the character that was meant.
char32_t Latin1Converter::asMeant(char32_t character)
{
    const char32_t meant = _form == LatinForm::Plain ? character : windowsCharacter(character);
    if (meant != character)
        count(character, Change::Windows, letterReference(meant));
    return meant;
}

void Latin1Converter::putCharacter(char32_t character, std::string& out)
{
    character = asMeant(character);
    const bool isPlain = character <= highestOfLatin1 || _form == LatinForm::Plain;
    const bool isInvalid = character == utf8::invalid;
    const bool isUnshown = !isPlain && !isInvalid && !isShowable(character);
    if (isUnshown || (isControl(character) && character != '\n' && character != '\t')) {
        count(character, Change::Control, " ");
        out += ' ';
    } else if (isPlain) {
        putStandIn(character, true, out);
    } else {
        const std::string reference = letterReference(isInvalid ? utf8::replacement : character);
        if (isInvalid)
            count(character, Change::InvalidByte, reference);
        out += reference;
    }
}

void Latin1Converter::putStandIn(char32_t character, bool entitiesAllowed, std::string& out)
{
    if (character <= highestOfLatin1) {
        out.push_back(static_cast<char>(static_cast<unsigned char>(character)));
        return;
    }
    const size_t begin = out.size();
    Change change = Change::Lost;
    const std::string_view name = entitiesAllowed ? entityName(character) : std::string_view();
    if (!name.empty()) {
        change = Change::Entity;
        (((out += '&') += name) += ';');
    } else if (character == utf8::invalid) {
        change = Change::InvalidByte;
        out += unknown;
    } else if (const auto standIn = transliteration(character)) {
        change = Change::Transliterated;
        out += entitiesAllowed ? escapedMarkup(*standIn) : *standIn;
    } else {
        out += unknown;
    }
    count(character, change, std::string_view(out).substr(begin));
}

void Latin1Converter::count(char32_t character, Change change, std::string_view written)
{
    ++_changes;
    Count& entry = _counts[{character, change}];
    if (entry.times++ == 0) {
        entry.change = change;
        entry.written = written;
    }
}

} // namespace teskel
