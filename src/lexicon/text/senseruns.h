// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <string_view>
#include <vector>

/// The sense numbers that plain text has of itself: "1.", "2)", "(3)" or "n 4:" at the beginnings
/// of lines. A number that counts on from none before it, such as "17. Lebensjahr", is text.
namespace teskel::senseruns
{

/// What may be the number of a sense, at the beginning of a line.
struct Candidate {
    std::size_t begin = 0;  ///< behind the blanks of the line's beginning
    std::size_t end = 0;    ///< behind the mark; 0 when there is no candidate
    std::string_view label; ///< a word class, such as "adj"; mostly empty
    unsigned number = 0;    ///< 0 to 99
    char mark = '\0';       ///< '.', ':', ')', or '(' for a number in parentheses
};

/// Whether it is a word class in the form that stands in front of a first sense, such as "adj".
bool isLabel(std::string_view text);

/// The candidate that a line begins with. Numbers are followed by a blank or the line's end; "01"
/// is none.
Candidate readCandidate(std::string_view line);

/// Those candidates of a text that are senses, their places counted from the text's beginning. For
/// each mark a run of numbers starts at 1 or at a labelled number and goes on by one; a run of two
/// or more, or one that a label began, is of senses.
std::vector<Candidate> find(std::string_view text);

} // namespace teskel::senseruns
