// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>

/// The sense numbers of articles.
///
/// The reader shows every digit from 1 to 9 that a full stop follows as a sense number, and no
/// other digit but 0. A sense number stands at the beginning of a line.
namespace teskel::sensenumbers
{

/// What the beginnings of lines mean in a text.
enum class LineStart {
    Trusted,  ///< a number there is a sense number
    Sequence, ///< only when the lines are numbered 1, 2, 3 and so on
};

/// Highest sense number that the reader knows.
inline constexpr unsigned highest = 9;

/// Shows nothing; between a digit and its full stop it keeps them from being a sense number.
inline constexpr std::string_view separator = "<i></i>";

/// Whether the reader leaves the character out unless a full stop makes it a sense number.
inline bool isSenseDigit(char32_t c)
{
    return c >= U'1' && c <= U'9';
}

/// A sense number with its full stop, as markup. Numbers above the highest that the reader knows
/// bring the tags that make them look the same; their digits are plain.
std::string written(unsigned number);

/// Writes every digit from 1 to 9 as a letter reference, but sense numbers at the beginnings of
/// lines. Those above the highest, which count on from it, get their tags. Does nothing a second
/// time.
void referDigits(std::string& article);

/// For the plain form: keeps digits that are no sense numbers from being shown as such, by a
/// separator. Does nothing a second time.
void protect(std::string& article, LineStart lineStart);

/// For the plain form: whether the article begins with a sense number.
bool beginsWithNumber(std::string_view article);

/// Whether any line of an article whose other digits are letter references is numbered.
bool hasNumber(std::string_view article);

} // namespace teskel::sensenumbers
