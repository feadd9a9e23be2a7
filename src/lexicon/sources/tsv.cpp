// SPDX-License-Identifier: MIT
#include "lexicon/sources/tsv.h"

#include <algorithm>

namespace teskel::tsv
{

namespace
{
constexpr std::string_view propertyMark = "##";
} // namespace

std::string escaped(std::string_view text)
{
    std::string result;
    result.reserve(text.size());
    for (const char c : text) {
        if (c == '\n')
            result += "\\n";
        else if (c == '\t')
            result += "\\t";
        else if (c == '\\')
            result += "\\\\";
        else
            result += c;
    }
    return result;
}

std::string unescaped(std::string_view text)
{
    std::string result;
    result.reserve(text.size());
    while (!text.empty()) {
        const size_t mark = std::min(text.find('\\'), text.size());
        result += text.substr(0, mark);
        text.remove_prefix(mark);
        if (text.empty())
            break;
        const char next = text.size() > 1 ? text[1] : '\0';
        const bool isEscape = next == 'n' || next == 't' || next == '\\';
        result += next == 'n' ? '\n' : next == 't' ? '\t' : '\\';
        text.remove_prefix(isEscape ? 2 : 1);
    }
    return result;
}

std::string escapedHeadword(std::string_view text)
{
    std::string result = escaped(text);
    if (result.starts_with(propertyMark))
        result.insert(0, 1, '\\');
    for (size_t bar = result.find('|'); bar != std::string::npos; bar = result.find('|', bar + 2))
        result.insert(bar, 1, '\\');
    return result;
}

std::vector<std::string> headwords(std::string_view text)
{
    std::vector<std::string> result;
    std::string word;
    const auto finish = [&] {
        if (word.find_first_not_of(' ') != std::string::npos)
            result.push_back(unescaped(word));
        word.clear();
    };
    const bool isMarkEscaped = text.starts_with('\\') && text.substr(1).starts_with(propertyMark);
    for (size_t i = isMarkEscaped ? 1 : 0; i < text.size(); ++i) {
        const char next = text[i] == '\\' && i + 1 < text.size() ? text[i + 1] : '\0';
        if (next == '|') {
            word += next;
            ++i;
        } else if (next != '\0') {
            word += text.substr(i++, 2);
        } else if (text[i] == '|') {
            finish();
        } else {
            word += text[i];
        }
    }
    finish();
    if (result.empty()) // a bar that divides nothing is a headword
        result.emplace_back(text);
    return result;
}

std::string_view propertyName(std::string_view headword)
{
    return headword.starts_with(propertyMark) ? headword.substr(propertyMark.size())
                                              : std::string_view();
}

std::string line(std::string_view headword, std::string_view article)
{
    std::string result = escapedHeadword(headword);
    result += '\t';
    result += escaped(article);
    return result += '\n';
}

bool split(std::string_view line, std::string_view& headword, std::string_view& article)
{
    const size_t tab = line.find('\t');
    if (tab == std::string_view::npos)
        return false;
    headword = line.substr(0, tab);
    article = line.substr(tab + 1);
    return true;
}

} // namespace teskel::tsv
