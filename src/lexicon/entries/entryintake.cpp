// SPDX-License-Identifier: MIT
#include "lexicon/entries/entryintake.h"

#include "lexicon/entries/oversizesplitter.h"
#include "lexicon/text/characterreference.h"
#include "lexicon/text/plaintext.h"
#include "lexicon/text/sensenumbers.h"
#include "lexicon/text/storedarticle.h"
#include "lexicon/text/tags.h"
#include "lexicon/text/utf8.h"
#include "script/letterreference.h"

#include <algorithm>
#include <limits>

namespace teskel
{

namespace
{

using Text = Latin1Converter::Text;

const std::string boldOpening = "<b>";
const std::string boldClosing = "</b>\n";

/// Where to cut rich text so that neither a reference nor a tag is broken.
size_t cutPlace(std::string_view text, size_t limit)
{
    if (text.size() <= limit)
        return text.size();
    size_t cut = limit;
    const size_t reference = text.rfind('&', cut - 1);
    if (reference != std::string_view::npos && text.find(';', reference) >= cut &&
        text.find(';', reference) - reference < 12)
        cut = reference;
    const size_t tag = cut == 0 ? std::string_view::npos : text.rfind('<', cut - 1);
    if (tag != std::string_view::npos && text.find('>', tag) >= cut && tag > 0)
        cut = tag;
    return cut;
}

/// Whether UTF-8 has characters that, composed or not, are above U+00FF.
bool mayLackLatin1(std::string_view utf8)
{
    return std::any_of(utf8.begin(), utf8.end(),
                       [](char c) { return static_cast<unsigned char>(c) > 0xC3; });
}

} // namespace

void EntryIntake::add(std::string_view headword, std::string_view article, Text kind,
                      uint32_t order, std::string_view where)
{
    ++_report.entriesRead;
    _report.progress->advance();
    _headword.clear();
    _converter.convert(headword, Text::Headword, _headword);
    storeArticle(article, kind);
    _writtenLength = 0;
    if (_options.form == LatinForm::LetterReferences)
        writeHeadword(headword);
    if (isLost(_headword) && headword.find('?') == std::string_view::npos)
        ++_lostHeadwords;
    _conversionNotes.tell(_converter.counts(), where, _report.diagnostics);
    if (_headword.empty()) {
        // Nothing is dropped: such an article is found under the sign for "unknown".
        _headword.assign(1, '?');
        _report.diagnostics.add(diagnostic::emptyHeadword, where,
                                "the headword is empty; its article is under \"?\"");
    }
    if (_headword.size() > limits::headwordBytes)
        shorten(where);
    // A longer line is one of the article's own.
    const bool isKnown = _writtenLength <= std::numeric_limits<uint16_t>::max();
    _entries.add(_headword, _article, order,
                 isKnown ? static_cast<uint16_t>(_writtenLength) : uint16_t{0});
}

/// Words may share an article, one behind the other. It is converted once, unless something about
/// it is counted.
void EntryIntake::storeArticle(std::string_view article, Text kind)
{
    constexpr size_t shortest = 256; // that is worth the copies
    if (article.size() >= shortest && kind == _shared.kind && article == _shared.text) {
        _article = _shared.stored;
        return;
    }
    const uint64_t changes = _converter.changes();
    _article = storedArticle(_converter, article, kind);
    if (article.size() >= shortest && _converter.changes() == changes)
        _shared = {std::string(article), kind, _article};
}

/// Begins the article with the headword as written, if the headword does not show it.
void EntryIntake::writeHeadword(std::string_view headword)
{
    const bool isMarkup = tags::areIn(_headword);
    if (!isMarkup && !mayLackLatin1(headword))
        return;
    const std::string written = Latin1Converter::asWritten(headword);
    const bool isRomanized = utf8::fromLatin1(_headword) != written;
    if (!isRomanized && (!isMarkup || (_writtenLength = writtenAlready()) > 0))
        return;
    const std::string line = boldOpening + lineOf(written) + boldClosing;
    _writtenLength = line.size();
    _article.insert(0, line);
    _report.romanizedHeadwords += isRomanized ? 1 : 0;
}

/// Length of the line that an article of another lexicon brings along for the headword: that is
/// Latin-1 there and may be shortened. A continuation begins in its own way.
size_t EntryIntake::writtenAlready()
{
    const std::string_view continued = OversizeSplitter::continuedBy(_headword);
    if (!continued.empty() && _article.starts_with(OversizeSplitter::continuation))
        return OversizeSplitter::continuation.size();
    const size_t end = _article.find(boldClosing);
    if (!_article.starts_with(boldOpening) || end == std::string::npos)
        return 0;
    const size_t begin = boldOpening.size();
    const std::string line = _article.substr(begin, end - begin);
    const std::string written = plainText(utf8::fromLatin1(line));
    const std::string headword = Latin1Converter().converted(written, Text::Headword);
    const bool isIt = headword == _headword || headword == continued ||
                      (headword.size() > limits::headwordBytes && headword.starts_with(_headword));
    return isIt && lineOf(written) == line ? end + boldClosing.size() : 0;
}

bool EntryIntake::isLost(std::string_view headword)
{
    return headword.find_first_not_of("? ") == std::string_view::npos;
}

std::string EntryIntake::lineOf(std::string_view written)
{
    std::string line = _converter.converted(written, Text::PlainArticle);
    sensenumbers::referDigits(line);
    if (sensenumbers::beginsWithNumber(line))
        line.replace(0, 1, letterReference(static_cast<unsigned char>(line.front())));
    return line;
}

void EntryIntake::shorten(std::string_view where)
{
    if (_options.form == LatinForm::Plain) {
        std::string whole = escapedMarkup(_headword);
        sensenumbers::protect(whole, sensenumbers::LineStart::Sequence);
        _article.insert(0, whole + "\n");
    } else if (_writtenLength == 0) {
        _article.insert(0, lineOf(utf8::fromLatin1(_headword)) + "\n");
    }
    const size_t length = _headword.size();
    _headword.resize(limits::headwordBytes);
    while (_headword.back() == ' ')
        _headword.pop_back();
    _report.diagnostics.add(
        diagnostic::longHeadword, where,
        "the headword has " + std::to_string(length) +
            " bytes, more than 511; it is shortened and stands whole in its article: " +
            utf8::fromLatin1(_headword.substr(0, 60)) + "...");
}

std::string EntryIntake::description(std::string_view text, Text kind)
{
    std::string result = _converter.converted(text, kind);
    _conversionNotes.tell(_converter.counts(), {}, _report.diagnostics);
    if (result.size() > limits::descriptionBytes) {
        _report.diagnostics.add(diagnostic::longDescription, {},
                                "the description has " + std::to_string(result.size()) +
                                    " bytes, more than 511; its end is left out");
        result.resize(cutPlace(result, limits::descriptionBytes));
    }
    return result;
}

} // namespace teskel
