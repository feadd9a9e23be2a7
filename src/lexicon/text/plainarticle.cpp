// SPDX-License-Identifier: MIT
#include "lexicon/text/plainarticle.h"

#include "lexicon/text/characterreference.h"
#include "lexicon/text/sensenumbers.h"
#include "lexicon/text/senseruns.h"
#include "lexicon/text/textlines.h"
#include "script/letterreference.h"

namespace teskel
{

namespace
{

std::string markupOf(const senseruns::Candidate& sense)
{
    std::string markup;
    if (!sense.label.empty())
        ((markup += "<i>") += sense.label) += "</i> ";
    return markup += sensenumbers::written(sense.number);
}

/// Text that stands at the beginning of a line and begins with no sense number.
std::string lineStart(std::string_view text)
{
    const size_t first = text.find_first_not_of(" \t");
    if (first == std::string_view::npos ||
        !sensenumbers::isSenseDigit(static_cast<unsigned char>(text[first])))
        return escapedMarkup(text);
    const auto digit = static_cast<unsigned char>(text[first]);
    return std::string(text.substr(0, first)) + letterReference(digit) +
           escapedMarkup(text.substr(first + 1));
}

/// Collects the markup of a text from its beginning to its end.
class Markup
{
public:
    Markup(std::string_view plain, const std::vector<TextSpan>& grey)
        : _plain(plain)
        , _grey(grey)
    {
    }

    /// Everything up to `end` as text.
    void addText(size_t end)
    {
        for (; _next < _grey.size() && _grey[_next].begin < end; ++_next) {
            const TextSpan& span = _grey[_next];
            addPart(span.begin);
            _result += "<font color=\"gray\">"; // a name: it has no digits
            addPart(span.begin + span.length);
            _result += "</font>";
        }
        addPart(end);
    }

    /// Everything up to `end` is replaced by `markup`.
    void addMarkup(size_t end, const std::string& markup)
    {
        _result += markup;
        _done = end;
    }

    size_t done() const { return _done; }
    std::string take() { return std::move(_result); }

private:
    void addPart(size_t end)
    {
        const bool beginsLine = _done == 0 || _plain[_done - 1] == '\n';
        const std::string_view part = _plain.substr(_done, end - _done);
        _result += beginsLine ? lineStart(part) : escapedMarkup(part);
        _done = end;
    }

    std::string_view _plain;
    const std::vector<TextSpan>& _grey;
    std::string _result;
    size_t _next = 0; ///< span
    size_t _done = 0;
};

} // namespace

std::string richText(std::string_view plain, const std::vector<TextSpan>& grey)
{
    const std::vector<senseruns::Candidate> senses = senseruns::find(plain);
    auto sense = senses.begin();
    Markup markup(plain, grey);
    for (std::string_view rest = plain; !rest.empty();) {
        const size_t begin = plain.size() - rest.size();
        takeLine(rest);
        const size_t end = plain.size() - rest.size();
        if (sense != senses.end() && sense->begin < end) {
            markup.addText(begin);
            markup.addMarkup(sense->end, markupOf(*sense));
            ++sense;
        }
        markup.addText(end);
    }
    return markup.take();
}

} // namespace teskel
