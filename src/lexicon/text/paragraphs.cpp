// SPDX-License-Identifier: MIT
#include "lexicon/text/paragraphs.h"

#include "lexicon/text/senseruns.h"
#include "lexicon/text/textlines.h"

#include <algorithm>

namespace teskel
{

namespace
{

constexpr auto npos = std::string_view::npos;

/// Characters of UTF-8.
size_t widthOf(std::string_view text)
{
    return static_cast<size_t>(std::count_if(text.begin(), text.end(), [](char c) {
        return (static_cast<unsigned char>(c) >> 6) != 2;
    }));
}

size_t widestLine(std::string_view text)
{
    size_t widest = 0;
    while (!text.empty())
        widest = std::max(widest, widthOf(takeLine(text)));
    return widest;
}

} // namespace

std::string joinedLines(std::string_view text)
{
    const size_t widest = widestLine(text);
    std::string result;
    result.reserve(text.size() + 1);
    std::string_view previous;
    size_t hanging = npos; // how far the paragraph's further lines are indented
    for (std::string_view rest = text; !rest.empty();) {
        const std::string_view line = takeLine(rest);
        const size_t indent = line.find_first_not_of(' ');
        const bool hangs = indent != npos && indent > 0 && indent == hanging;
        const std::string_view first =
            hangs ? line.substr(indent, line.find(' ', indent) - indent) : std::string_view();
        if (hangs && widthOf(previous) + 1 + widthOf(first) > widest) {
            result.back() = ' '; // in place of the line feed
            result += line.substr(indent);
        } else {
            if (!hangs) {
                const senseruns::Candidate candidate = senseruns::readCandidate(line);
                hanging = candidate.end > 0 ? line.find_first_not_of(' ', candidate.end) : npos;
            }
            result += line;
        }
        result += '\n';
        previous = line;
    }
    return result;
}

} // namespace teskel
