// SPDX-License-Identifier: MIT
#include "lexicon/sources/stardict/stardictinfo.h"

#include "lexicon/sources/input/inputfile.h"
#include "lexicon/sources/lexiconsource.h"
#include "lexicon/text/textlines.h"
#include "lexicon/text/utf8.h"

#include <charconv>

namespace teskel
{

namespace
{

constexpr std::string_view openingLine = "StarDict's dict ifo file";

std::optional<uint64_t> number(std::string_view text)
{
    uint64_t value = 0;
    const auto [end, code] = std::from_chars(text.data(), text.data() + text.size(), value);
    if (code != std::errc() || end != text.data() + text.size())
        return std::nullopt;
    return value;
}

} // namespace

bool StarDictInfo::isBegunBy(std::string_view head)
{
    return utf8::withoutByteOrderMark(head).starts_with(openingLine);
}

bool StarDictInfo::take(std::string_view key, std::string_view value, std::string& error)
{
    const auto count = number(value);
    const bool isNumber = key == "wordcount" || key == "idxfilesize" || key == "idxoffsetbits";
    if (isNumber && !count) {
        error = std::string(key) + " is no number";
        return false;
    }
    if (key == "bookname") {
        name = value;
    } else if (key == "sametypesequence") {
        typeSequence = value;
    } else if (key == "wordcount") {
        wordCount = count;
    } else if (key == "idxfilesize") {
        indexBytes = count;
    } else if (key == "idxoffsetbits") {
        if (*count != 32 && *count != 64) {
            error = "idxoffsetbits is neither 32 nor 64";
            return false;
        }
        offsetBytes = static_cast<unsigned>(*count / 8);
    }
    return true;
}

bool StarDictInfo::read(const std::string& path, std::string& error)
{
    InputFile file;
    std::string line;
    bool isEnd = false;
    if (!file.open(path, error))
        return false;
    for (uint64_t lineNumber = 1; file.readLine(line, isEnd, error) && !isEnd; ++lineNumber) {
        if (lineNumber == 1 && !isBegunBy(line)) {
            error = path + " is no .ifo of a StarDict dictionary: its first line is another";
            return false;
        }
        const size_t sign = line.find('=');
        if (sign == std::string::npos)
            continue;
        const std::string_view text = line;
        if (!take(trimmed(text.substr(0, sign)), trimmed(text.substr(sign + 1)), error)) {
            error = placeInFile(path, lineNumber) + ": " + error;
            return false;
        }
    }
    return error.empty();
}

} // namespace teskel
