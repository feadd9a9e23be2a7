// SPDX-License-Identifier: MIT
#include "lexicon/text/latin1converter.h"

#include "lexicon/text/characterreference.h"
#include "lexicon/text/charactertables.h"
#include "lexicon/text/utf8.h"

namespace teskel
{

namespace
{

constexpr std::string_view unknown = "?";

bool isControl(char32_t character)
{
    return character < 0x20 || character == 0x7F;
}

bool isBlank(char32_t character)
{
    return character == ' ' || isControl(character);
}

} // namespace

void Latin1Converter::convert(std::string_view text, Text kind, std::string& out)
{
    const std::u32string whole = utf8::composed(text);
    if (kind == Text::Headword)
        convertHeadword(whole, out);
    else
        convertArticle(whole, kind == Text::MarkupArticle, out);
}

std::string Latin1Converter::converted(std::string_view text, Text kind)
{
    std::string result;
    convert(text, kind, result);
    return result;
}

void Latin1Converter::convertHeadword(std::u32string_view text, std::string& out)
{
    const size_t begin = out.size();
    bool blankPending = false;
    for (const char32_t character : text) {
        if (isBlank(character)) {
            if (character != ' ' && character != '\t' && character != '\n' && character != '\r')
                count(character, Change::Control, " ");
            blankPending = true;
            continue;
        }
        if (blankPending && out.size() > begin)
            out += ' ';
        blankPending = false;
        putCharacter(character, false, out);
    }
    while (out.size() > begin && out.back() == ' ') // left by a wide blank
        out.pop_back();
}

void Latin1Converter::convertArticle(std::u32string_view text, bool isMarkup, std::string& out)
{
    for (size_t position = 0; position < text.size(); ++position) {
        const char32_t character = text[position];
        if (character == U'&' && isMarkup) {
            const CharacterReference reference = readDigitReference(text.substr(position));
            if (reference.length == 0) {
                out += '&';
            } else {
                position += reference.length - 1;
                if (reference.character == '<' || reference.character == '&')
                    out += escapedMarkup(std::string(1, static_cast<char>(reference.character)));
                else
                    putCharacter(reference.character, true, out);
            }
        } else if (character == U'&') {
            out += "&amp;";
        } else if (character == U'<' && !isMarkup) {
            out += "&lt;";
        } else {
            putCharacter(character, true, out);
        }
    }
}

void Latin1Converter::putCharacter(char32_t character, bool entitiesAllowed, std::string& out)
{
    if (isControl(character) && character != '\n' && character != '\t') {
        count(character, Change::Control, " ");
        out += ' ';
        return;
    }
    if (character <= 0xFF) {
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
    Count& entry = _counts[{character, change}];
    if (entry.times++ == 0) {
        entry.change = change;
        entry.written = written;
    }
}

} // namespace teskel
