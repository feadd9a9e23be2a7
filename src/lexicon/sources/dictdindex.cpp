// SPDX-License-Identifier: MIT
#include "lexicon/sources/dictdindex.h"

#include "lexicon/sources/lexiconsource.h"
#include "lexicon/text/textlines.h"

#include <optional>

namespace teskel
{

namespace
{

/// A digit of dictd's numbers, most significant first, base 64.
int digitValue(char c)
{
    if (c >= 'A' && c <= 'Z')
        return c - 'A';
    if (c >= 'a' && c <= 'z')
        return c - 'a' + 26;
    if (c >= '0' && c <= '9')
        return c - '0' + 52;
    if (c == '+')
        return 62;
    return c == '/' ? 63 : -1;
}

std::optional<uint64_t> number(std::string_view digits)
{
    constexpr size_t mostDigits = 8; // 48 bits, more than any file
    if (digits.empty() || digits.size() > mostDigits)
        return std::nullopt;
    uint64_t value = 0;
    for (const char c : digits) {
        const int digit = digitValue(c);
        if (digit < 0)
            return std::nullopt;
        value = value << 6 | static_cast<uint64_t>(digit);
    }
    return value;
}

std::string_view takeField(std::string_view& text)
{
    const size_t tab = text.find('\t');
    const std::string_view field = text.substr(0, tab);
    text.remove_prefix(tab == std::string_view::npos ? text.size() : tab + 1);
    return field;
}

/// A line without its end; offset and length are the second and the third field.
std::optional<DictdIndex::Line> lineOf(std::string_view text)
{
    DictdIndex::Line line;
    line.key = takeField(text);
    const auto offset = number(takeField(text));
    const auto size = number(takeField(text));
    if (!offset || !size)
        return std::nullopt;
    line.offset = *offset;
    line.size = *size;
    return line;
}

} // namespace

bool DictdIndex::isBegunBy(std::string_view head)
{
    bool hasLine = false;
    head = head.substr(0, head.rfind('\n') + 1); // behind it the line may go on
    while (!head.empty()) {
        const std::string_view line = takeLine(head);
        if (!line.empty() && !lineOf(line))
            return false;
        hasLine = hasLine || !line.empty();
    }
    return hasLine;
}

bool DictdIndex::Line::isMetadata() const
{
    return key.starts_with("00database") || key.starts_with("00-database-");
}

bool DictdIndex::open(const std::string& path, std::string& error)
{
    return _file.open(path, error);
}

bool DictdIndex::next(Line& line, bool& isEnd, std::string& error)
{
    do {
        if (!_file.readLine(_text, isEnd, error))
            return false;
        if (isEnd)
            return _file.checkUnchanged(error);
        ++_number;
    } while (_text.empty());
    const auto read = lineOf(_text);
    if (!read) {
        error = placeInFile(_file.name(), _number) +
                ": not a line of a dictd index (word, offset and length, divided by tabs)";
        return false;
    }
    line = *read;
    line.number = _number;
    return true;
}

} // namespace teskel
