// SPDX-License-Identifier: MIT
#include "lexicon/text/senseruns.h"

#include "lexicon/text/textlines.h"

#include <algorithm>
#include <array>
#include <map>

namespace teskel::senseruns
{

namespace
{

constexpr std::array<std::string_view, 7> labels = {"n", "v", "adj", "adv", "a", "s", "r"};
constexpr size_t mostDigits = 2;

bool isDigit(char c)
{
    return c >= '0' && c <= '9';
}

bool isBlank(char c)
{
    return c == ' ' || c == '\t' || c == '\r';
}

char charAt(std::string_view text, size_t position)
{
    return position < text.size() ? text[position] : '\0';
}

std::string_view readLabel(std::string_view text)
{
    for (const std::string_view label : labels) {
        if (text.starts_with(label) && charAt(text, label.size()) == ' ')
            return text.substr(0, label.size());
    }
    return {};
}

/// A run that may go on.
struct Run {
    bool isSenses = false; ///< whether it is known to be one of senses
    unsigned next = 0;     ///< the number that goes on with it
    size_t first = 0;      ///< its first candidate
};

} // namespace

bool isLabel(std::string_view text)
{
    return std::find(labels.begin(), labels.end(), text) != labels.end();
}

Candidate readCandidate(std::string_view line)
{
    Candidate candidate;
    size_t at = 0;
    while (at < line.size() && isBlank(line[at]))
        ++at;
    candidate.begin = at;
    candidate.label = readLabel(line.substr(at));
    if (!candidate.label.empty())
        at += candidate.label.size() + 1;
    const bool opens = charAt(line, at) == '(';
    at += opens ? 1 : 0;
    const size_t digits = at;
    for (; isDigit(charAt(line, at)); ++at)
        candidate.number = candidate.number * 10 + static_cast<unsigned>(line[at] - '0');
    const size_t count = at - digits;
    const char mark = charAt(line, at);
    const bool isPadded = count > 1 && line[digits] == '0'; // written again, it would lose a digit
    if (count == 0 || count > mostDigits || isPadded ||
        !(opens ? mark == ')' : mark == '.' || mark == ':' || mark == ')'))
        return {};
    if (++at < line.size() && !isBlank(line[at]))
        return {};
    candidate.mark = opens ? '(' : mark;
    candidate.end = at;
    return candidate;
}

std::vector<Candidate> find(std::string_view text)
{
    std::vector<Candidate> candidates;
    std::vector<bool> isSense;
    std::map<char, Run> runs;
    size_t offset = 0;
    for (std::string_view rest = text; !rest.empty();) {
        const size_t before = rest.size();
        Candidate candidate = readCandidate(takeLine(rest));
        candidate.begin += offset;
        const bool isOne = candidate.end > 0;
        candidate.end += offset;
        offset += before - rest.size();
        if (!isOne)
            continue;
        Run& run = runs[candidate.mark];
        const size_t place = candidates.size();
        const bool isLabelled = !candidate.label.empty();
        if (!isLabelled && run.next != 0 && candidate.number == run.next) {
            run.isSenses = true;
            isSense[run.first] = true;
        } else if (isLabelled || candidate.number == 1) {
            run = {isLabelled, 0, place};
        } else {
            continue;
        }
        run.next = candidate.number + 1;
        candidates.push_back(candidate);
        isSense.push_back(run.isSenses);
    }
    std::vector<Candidate> senses;
    for (size_t i = 0; i < candidates.size(); ++i) {
        if (isSense[i])
            senses.push_back(candidates[i]);
    }
    return senses;
}

} // namespace teskel::senseruns
