// SPDX-License-Identifier: MIT
#include "lexicon/sources/tsv.h"

namespace teskel::tsv
{

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
    for (size_t i = 0; i < text.size(); ++i) {
        const char next = text[i] == '\\' && i + 1 < text.size() ? text[i + 1] : '\0';
        if (next == 'n')
            result += '\n';
        else if (next == 't')
            result += '\t';
        else if (next == '\\')
            result += '\\';
        else {
            result += text[i];
            continue;
        }
        ++i;
    }
    return result;
}

std::string line(std::string_view headword, std::string_view article)
{
    std::string result = escaped(headword);
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
