// SPDX-License-Identifier: MIT
#pragma once

#include "lexicon/text/textoptions.h"

#include <cstddef>
#include <cstdint>
#include <map>
#include <string>
#include <string_view>

namespace teskel
{

/// Turns UTF-8 texts into the Latin-1 texts of a lexicon and counts what had to change.
class Latin1Converter
{
public:
    explicit Latin1Converter(LatinForm form = LatinForm::LetterReferences)
        : _form(form)
    {
    }

    LatinForm form() const { return _form; }

    /// What a text is, which decides how its characters may be written.
    enum class Text {
        Headword,      ///< shown as it is: no references
        PlainArticle,  ///< plain text that becomes rich text: "<" and "&" are escaped
        MarkupArticle, ///< rich text already: only references that hold digits are rewritten and,
                       ///< in the plain form, letter references
    };
    /// How a character was written, if not as itself, as a letter reference or, in a headword, by
    /// the rules of inLatin1().
    enum class Change {
        Entity,         ///< as a named entity
        Transliterated, ///< as its stand-in
        Lost,           ///< as "?"
        Control,        ///< a character that is not to be shown, as a blank
        Windows,        ///< a control character, as what Windows-1252 has in its place
        InvalidByte,    ///< no UTF-8, as "?" or, in the articles of the other form, as U+FFFD
    };
    struct Count {
        Change change;
        std::string written; ///< what was written instead, Latin-1
        uint64_t times = 0;
    };
    /// In the order of the characters; a character may occur once as an entity (in articles) and
    /// once transliterated (in headwords).
    using Counts = std::map<std::pair<char32_t, Change>, Count>;

    /// Appends the Latin-1 form of `text` to `out`. Line feeds and tabs stay in articles; headwords
    /// get single blanks in place of any white space, none at their ends.
    void convert(std::string_view text, Text kind, std::string& out);
    std::string converted(std::string_view text, Text kind);

    /// A headword as it is written, UTF-8: composed, its blanks as in convert(), nothing else
    /// changed.
    static std::string asWritten(std::string_view headword);

    /// How many changes there were, all together.
    uint64_t changes() const { return _changes; }
    const Counts& counts() const { return _counts; }

private:
    void convertHeadword(std::u32string text, std::string& out);
    void convertPlainHeadword(std::u32string_view text, std::string& out);
    void convertArticle(std::u32string_view text, bool isMarkup, std::string& out);
    std::size_t putReferred(std::u32string_view text, std::string& out);
    void putAsText(char32_t character, std::string& out);
    void putCharacter(char32_t character, std::string& out);
    void putStandIn(char32_t character, bool entitiesAllowed, std::string& out);
    char32_t asMeant(char32_t character);
    void count(char32_t character, Change change, std::string_view written);

    LatinForm _form;
    Counts _counts;
    uint64_t _changes = 0;
};

} // namespace teskel
