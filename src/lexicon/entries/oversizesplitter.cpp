// SPDX-License-Identifier: MIT
#include "lexicon/entries/oversizesplitter.h"

#include "lexicon/text/utf8.h"

#include <algorithm>
#include <cctype>

namespace teskel
{

namespace
{

constexpr std::string_view continuation = "&hellip;\n";
/// A shorter beginning of an article is not worth a cut.
constexpr size_t shortestPiece = 2048;

size_t groupEnd(const std::vector<LexiconEntry>& entries, size_t first)
{
    size_t end = first + 1;
    while (end < entries.size() && foldsAlike(entries[first], entries[end]))
        ++end;
    return end;
}

size_t bytesOf(const LexiconEntry* first, const LexiconEntry* last)
{
    size_t bytes = 0;
    for (; first != last; ++first)
        bytes += first->packed().size();
    return bytes;
}

/// `place`, or the beginning of what `opening` begins and no `closing` ends before it, if that is
/// not before `first`.
size_t unbroken(std::string_view article, size_t place, size_t first, char opening, char closing)
{
    const size_t opened = article.substr(0, place).rfind(opening);
    if (opened == std::string_view::npos || opened < first ||
        article.substr(opened, place - opened).find(closing) != std::string_view::npos)
        return place;
    return opened;
}

/// Where an article of more than `room` bytes is best cut: at the last line end, else at the last
/// blank, else where neither a tag nor a reference is broken.
size_t cutPlace(std::string_view article, size_t room)
{
    for (const char separator : {'\n', ' '}) {
        const size_t place = article.rfind(separator, room);
        if (place != std::string_view::npos && place >= room / 2)
            return place;
    }
    size_t place = room;
    // A reference, or a sense number and its full stop; then the tag that may hold it.
    place = unbroken(article, place, room / 2, '&', ';');
    if (article[place] == '.' && std::isdigit(static_cast<unsigned char>(article[place - 1])))
        --place;
    return unbroken(article, place, room / 2, '<', '>');
}

} // namespace

std::vector<LexiconEntry> OversizeSplitter::split(std::vector<LexiconEntry> entries)
{
    bool changed = false;
    _fitting.clear();
    for (size_t first = 0; first < entries.size();) {
        const size_t end = groupEnd(entries, first);
        const LexiconEntry* data = entries.data();
        if (bytesOf(data + first, data + end) > limits::recordPayload) {
            if (!changed)
                _fitting.assign(data, data + first);
            changed = true;
            splitGroup(Group(data + first, data + end), entries);
        } else if (changed) {
            _fitting.insert(_fitting.end(), data + first, data + end);
        }
        first = end;
    }
    if (!changed)
        return entries;
    std::sort(_fitting.begin(), _fitting.end(), comesBefore);
    return std::move(_fitting);
}

void OversizeSplitter::splitGroup(const Group& group, const std::vector<LexiconEntry>& all)
{
    const std::string name = utf8::fromLatin1(group.front().headword());
    _report.diagnostics.add(diagnostic::longArticle, {},
                            "the articles of \"" + name +
                                "\" fill more than one record of 32,767 bytes; they "
                                "go on under \"" +
                                name + " (2)\" and so on");
    _part = 1;
    size_t room = limits::recordPayload;
    for (const LexiconEntry& entry : group) {
        std::string headword(entry.headword());
        std::string article(entry.article());
        while (headword.size() + article.size() + 2 > room) {
            if (room >= headword.size() + 2 + shortestPiece)
                cut(headword, article, room, entry.order);
            headword = continuedHeadword(entry.headword(), all);
            room = limits::recordPayload;
        }
        _fitting.push_back(_arena.make(headword, article, entry.order));
        // A continuation is a headword of its own; nothing else can share its record's room.
        room = headword == entry.headword() ? room - _fitting.back().packed().size() : 0;
    }
}

void OversizeSplitter::cut(const std::string& headword, std::string& article, size_t room,
                           uint32_t order)
{
    const size_t place = cutPlace(article, room - headword.size() - 2);
    _fitting.push_back(_arena.make(headword, std::string_view(article).substr(0, place), order));
    const bool atSeparator = article[place] == '\n' || article[place] == ' ';
    article.replace(0, place + (atSeparator ? 1 : 0), continuation);
}

std::string OversizeSplitter::continuedHeadword(std::string_view headword,
                                                const std::vector<LexiconEntry>& all)
{
    while (true) {
        const std::string suffix = " (" + std::to_string(++_part) + ")";
        std::string name(headword.substr(0, limits::headwordBytes - suffix.size()));
        name += suffix;
        const LexiconEntry wanted = _arena.make(name, {}, 0);
        const auto place = std::lower_bound(
            all.begin(), all.end(), wanted,
            [](const LexiconEntry& a, const LexiconEntry& b) { return comesBefore(a, b); });
        const auto isTaken = [&](auto each) {
            return each != all.end() && foldsAlike(*each, wanted);
        };
        if (!isTaken(place) && !(place != all.begin() && isTaken(std::prev(place))))
            return name;
    }
}

} // namespace teskel
