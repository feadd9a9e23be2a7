// SPDX-License-Identifier: MIT
#include "lexicon/entries/oversizesplitter.h"

#include "dictionary/latin1fold.h"
#include "lexicon/entries/entrygroups.h"
#include "lexicon/text/utf8.h"

#include <algorithm>
#include <cctype>

namespace teskel
{

namespace
{

/// A shorter beginning of an article is not worth a cut.
constexpr size_t shortestPiece = 2048;
/// Of " (4294967295)", the last number there can be.
constexpr size_t longestSuffix = 13;

size_t bytesOf(const std::vector<LexiconEntry>& group)
{
    size_t bytes = 0;
    for (const LexiconEntry& entry : group)
        bytes += entry.packed().size();
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

std::string folded(std::string_view headword)
{
    std::string result(headword);
    for (char& c : result)
        c = static_cast<char>(foldByte(static_cast<unsigned char>(c)));
    return result;
}

std::string suffixOf(unsigned part)
{
    return " (" + std::to_string(part) + ")";
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

std::string_view OversizeSplitter::continuedBy(std::string_view headword)
{
    if (!headword.ends_with(')'))
        return {};
    const size_t open = headword.rfind(" (");
    const std::string_view digits = open == std::string_view::npos
                                        ? std::string_view()
                                        : headword.substr(open + 2, headword.size() - open - 3);
    const bool isNumber =
        !digits.empty() && digits.find_first_not_of("0123456789") == std::string_view::npos;
    return isNumber ? headword.substr(0, open) : std::string_view();
}

bool OversizeSplitter::isNeeded(EntryFile& merged)
{
    const auto entries = merged.read();
    EntryGroups groups(*entries, foldsAlike);
    for (const Group* group = &groups.next(); !group->empty(); group = &groups.next()) {
        if (bytesOf(*group) <= limits::recordPayload && !groups.isContinued())
            continue;
        // A long headword is cut to make room for the number.
        const std::string headword = folded(group->front().headword());
        for (size_t length = headword.size() - std::min(headword.size() - 1, longestSuffix);
             length <= headword.size(); ++length)
            _oversize.insert(headword.substr(0, length));
    }
    return !_oversize.empty();
}

void OversizeSplitter::noteTakenNames(EntryFile& merged)
{
    const auto entries = merged.read();
    LexiconEntry entry;
    while (entries->next(entry)) {
        const std::string_view name = continuedBy(entry.headword());
        if (!name.empty() && _oversize.contains(folded(name)))
            _taken.insert(folded(entry.headword()));
    }
}

bool OversizeSplitter::split(EntryFile& merged, EntrySorter& fitting)
{
    noteTakenNames(merged);
    const auto entries = merged.read();
    EntryGroups groups(*entries, foldsAlike);
    for (const Group* group = &groups.next(); !group->empty(); group = &groups.next()) {
        if (!splitGroup(*group, groups.isContinued(), fitting))
            return false;
    }
    return true;
}

bool OversizeSplitter::splitGroup(const Group& group, bool isContinued, EntrySorter& fitting)
{
    const auto give = [&](std::string_view headword, std::string_view article, uint32_t order) {
        return fitting.add(headword, article, order);
    };
    if (bytesOf(group) <= limits::recordPayload && !isContinued)
        return std::all_of(group.begin(), group.end(), [&](const LexiconEntry& entry) {
            return give(entry.headword(), entry.article(), entry.order);
        });
    if (!isContinued)
        report(group.front().headword());
    size_t room = isContinued ? 0 : limits::recordPayload;
    for (const LexiconEntry& entry : group) {
        std::string headword(entry.headword());
        std::string_view rest = entry.article();
        std::string_view dots; // in front of what was cut off
        std::string piece;
        while (headword.size() + dots.size() + rest.size() + 2 > room) {
            if (room >= headword.size() + 2 + shortestPiece) {
                const size_t most = room - headword.size() - 2;
                piece = dots;
                piece += rest.substr(0, most + 1 - dots.size());
                const size_t place = cutPlace(piece, most);
                const bool atSeparator = piece[place] == '\n' || piece[place] == ' ';
                if (!give(headword, std::string_view(piece).substr(0, place), entry.order))
                    return false;
                rest.remove_prefix(place - dots.size() + (atSeparator ? 1 : 0));
                dots = continuation;
            }
            headword = continuedHeadword(entry.headword());
            room = limits::recordPayload;
        }
        piece = dots;
        piece += rest;
        if (!give(headword, piece, entry.order))
            return false;
        // A continuation is a headword of its own; nothing else can share its record's room.
        room = headword == entry.headword() ? room - headword.size() - piece.size() - 2 : 0;
    }
    return true;
}

void OversizeSplitter::report(std::string_view headword)
{
    const std::string name = utf8::fromLatin1(headword);
    _report.diagnostics.add(diagnostic::longArticle, {},
                            "the articles of \"" + name +
                                "\" fill more than one record of 32,767 bytes; they "
                                "go on under \"" +
                                name + " (2)\" and so on");
    _part = 1;
}

std::string OversizeSplitter::continuedHeadword(std::string_view headword)
{
    while (true) {
        const std::string suffix = suffixOf(++_part);
        std::string name(headword.substr(0, limits::headwordBytes - suffix.size()));
        name += suffix;
        if (!_taken.contains(folded(name)))
            return name;
    }
}

} // namespace teskel
