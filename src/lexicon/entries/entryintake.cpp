// SPDX-License-Identifier: MIT
#include "lexicon/entries/entryintake.h"

#include "lexicon/text/characterreference.h"
#include "lexicon/text/sensenumbers.h"
#include "lexicon/text/utf8.h"

#include <utility>

namespace teskel
{

namespace
{

using Text = Latin1Converter::Text;

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

} // namespace

void EntryIntake::add(std::string_view headword, std::string_view article, Text kind,
                      uint32_t order, std::string_view where)
{
    ++_report.entriesRead;
    _report.progress->advance();
    _headword.clear();
    _article.clear();
    _converter.convert(headword, Text::Headword, _headword);
    _converter.convert(article, kind, _article);
    sensenumbers::protect(_article, kind == Text::MarkupArticle
                                        ? sensenumbers::LineStart::Trusted
                                        : sensenumbers::LineStart::Sequence);
    _conversionNotes.tell(_converter.counts(), where, _report.diagnostics);
    if (_headword.empty()) {
        // Nothing is dropped: such an article is found under the sign for "unknown".
        _headword.assign(1, '?');
        _report.diagnostics.add(diagnostic::emptyHeadword, where,
                                "the headword is empty; its article is under \"?\"");
    }
    if (_headword.size() > limits::headwordBytes)
        shorten(_headword, _article, where);
    _entries.push_back(_arena.make(_headword, _article, order));
}

void EntryIntake::shorten(std::string& headword, std::string& article, std::string_view where)
{
    std::string whole = escapedMarkup(headword);
    sensenumbers::protect(whole, sensenumbers::LineStart::Sequence);
    article.insert(0, whole + "\n");
    const size_t length = headword.size();
    headword.resize(limits::headwordBytes);
    while (headword.back() == ' ')
        headword.pop_back();
    _report.diagnostics.add(
        diagnostic::longHeadword, where,
        "the headword has " + std::to_string(length) +
            " bytes, more than 511; it is shortened and stands whole in its article: " +
            utf8::fromLatin1(headword.substr(0, 60)) + "...");
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

std::vector<LexiconEntry> EntryIntake::take()
{
    return std::exchange(_entries, {});
}

} // namespace teskel
