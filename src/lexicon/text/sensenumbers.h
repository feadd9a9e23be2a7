// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>

/// The sense numbers of articles.
///
/// The reader shows every digit from 1 to 9 that a full stop follows as a sense number, and no
/// other digit but 0. A sense number stands at the beginning of a line; everywhere else digit and
/// full stop are kept apart by an empty pair of tags, which shows nothing.
namespace teskel::sensenumbers
{

/// What the beginnings of lines mean in a text.
enum class LineStart {
    Trusted,  ///< a number there is a sense number
    Sequence, ///< only when the lines are numbered 1, 2, 3 and so on
};

/// Highest sense number that the reader knows.
inline constexpr unsigned highest = 9;

/// Keeps digits that are no sense numbers from being shown as such. Does nothing a second time.
void protect(std::string& article, LineStart lineStart);

/// Whether the article begins with a sense number.
bool beginsWithNumber(std::string_view article);

} // namespace teskel::sensenumbers
