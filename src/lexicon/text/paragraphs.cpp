// SPDX-License-Identifier: MIT
#include "lexicon/text/paragraphs.h"

#include "lexicon/text/senseruns.h"
#include "lexicon/text/textlines.h"

namespace teskel
{

namespace
{
constexpr auto npos = std::string_view::npos;
} // namespace

std::string joinedLines(std::string_view text)
{
    std::string result;
    result.reserve(text.size());
    size_t hanging = npos; // how far the paragraph's further lines are indented
    for (std::string_view rest = text; !rest.empty();) {
        const std::string_view line = takeLine(rest);
        const size_t indent = line.find_first_not_of(' ');
        if (indent != npos && indent > 0 && indent == hanging) {
            result.back() = ' '; // in place of the line feed
            result += line.substr(indent);
        } else {
            const senseruns::Candidate candidate = senseruns::readCandidate(line);
            hanging = candidate.end > 0 ? line.find_first_not_of(' ', candidate.end) : npos;
            result += line;
        }
        result += '\n';
    }
    return result;
}

} // namespace teskel
