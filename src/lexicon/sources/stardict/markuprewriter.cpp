// SPDX-License-Identifier: MIT
#include "lexicon/sources/stardict/markuprewriter.h"

#include "script/letterreference.h"

#include <algorithm>
#include <cctype>
#include <set>
#include <span>
#include <utility>

namespace teskel::markup
{

namespace
{

/// What becomes of a tag; the texts replace it, "\n" stands for the end of a line.
struct Rule {
    std::string_view name;
    enum class Action { Keep, Replace, Break, SkipContent } action;
    std::string_view opening = {};
    std::string_view closing = {};
};
using Action = Rule::Action;

struct Language {
    std::span<const Rule> rules;
    bool keepsUnknownTags;
    bool lineFeedsAreBlanks;
};

constexpr Rule htmlRules[] = {
    {"a", Action::Replace},
    {"audio", Action::SkipContent},
    {"blockquote", Action::Break},
    {"body", Action::Replace},
    {"br", Action::Replace, "\n"},
    {"caption", Action::Break},
    {"dd", Action::Break},
    {"div", Action::Break},
    {"dl", Action::Break},
    {"dt", Action::Break},
    {"h1", Action::Break, "<b>", "</b>"},
    {"h2", Action::Break, "<b>", "</b>"},
    {"h3", Action::Break, "<b>", "</b>"},
    {"h4", Action::Break, "<b>", "</b>"},
    {"h5", Action::Break, "<b>", "</b>"},
    {"h6", Action::Break, "<b>", "</b>"},
    {"head", Action::SkipContent},
    {"hr", Action::Break},
    {"html", Action::Replace},
    {"img", Action::Replace},
    {"li", Action::Break},
    {"link", Action::Replace},
    {"meta", Action::Replace},
    {"ol", Action::Break},
    {"p", Action::Break},
    {"pre", Action::Break},
    {"script", Action::SkipContent},
    {"style", Action::SkipContent},
    {"table", Action::Break},
    {"tbody", Action::Replace},
    {"td", Action::Replace, "", " "},
    {"th", Action::Replace, "", " "},
    {"thead", Action::Replace},
    {"tr", Action::Break},
    {"ul", Action::Break},
    {"video", Action::SkipContent},
};

constexpr Rule xdxfRules[] = {
    {"abr", Action::Replace, "<i>", "</i>"},
    {"abbr", Action::Replace, "<i>", "</i>"},
    {"b", Action::Keep},
    {"big", Action::Keep},
    {"blockquote", Action::Break},
    {"br", Action::Replace, "\n"},
    {"co", Action::Replace, "<i>", "</i>"},
    {"def", Action::Break},
    {"ex", Action::Replace, "<i>", "</i>"},
    {"ex_orig", Action::Replace, "<i>", "</i>"},
    {"gr", Action::Replace, "<i>", "</i>"},
    {"i", Action::Keep},
    {"k", Action::Break, "<b>", "</b>"},
    {"mrkd", Action::Replace, "<b>", "</b>"},
    {"pos", Action::Replace, "<i>", "</i>"},
    {"rref", Action::SkipContent},
    {"small", Action::Keep},
    {"sub", Action::Keep},
    {"sup", Action::Keep},
    {"tr", Action::Replace, "[", "]"},
    {"tt", Action::Keep},
};

constexpr Rule pangoRules[] = {
    {"b", Action::Keep},   {"big", Action::Keep},   {"i", Action::Keep},
    {"s", Action::Keep},   {"small", Action::Keep}, {"sub", Action::Keep},
    {"sup", Action::Keep}, {"tt", Action::Keep},    {"u", Action::Keep},
};

constexpr Language html = {htmlRules, true, true};
constexpr Language xdxf = {xdxfRules, false, false};
constexpr Language pango = {pangoRules, false, false};

struct Tag {
    std::string name; ///< in small letters; "!" for comments and the like
    bool isClosing = false;
    size_t length = 0; ///< 0 when there is no tag
};

/// Reads a tag at the beginning of a text. A ">" within quotes does not end it.
Tag readTag(std::string_view text)
{
    Tag tag;
    size_t i = 1;
    if (text.starts_with("<!--")) {
        const size_t end = text.find("-->");
        tag.name.assign(1, '!');
        tag.length = end == std::string_view::npos ? text.size() : end + 3;
        return tag;
    }
    tag.isClosing = text.substr(i).starts_with('/');
    i += tag.isClosing ? 1 : 0;
    if (i >= text.size())
        return {};
    const char first = text[i];
    if (first == '!' || first == '?')
        tag.name.assign(1, '!');
    for (; i < text.size() && (std::isalnum(static_cast<unsigned char>(text[i])) || text[i] == '_');
         ++i)
        tag.name += static_cast<char>(std::tolower(static_cast<unsigned char>(text[i])));
    if (tag.name.empty())
        return {};
    char quote = '\0';
    for (; i < text.size(); ++i) {
        const char c = text[i];
        if (quote != '\0') {
            quote = c == quote ? '\0' : quote;
        } else if (c == '"' || c == '\'') {
            quote = c;
        } else if (c == '<') {
            return {};
        } else if (c == '>') {
            tag.length = i + 1;
            return tag;
        }
    }
    return {};
}

/// Rewrites one text from its beginning to its end.
class Rewriter
{
public:
    explicit Rewriter(const Language& language)
        : _language(language)
    {
    }

    std::string rewritten(std::string_view text)
    {
        while (!text.empty()) {
            const Tag tag = text.front() == '<' ? readTag(text) : Tag();
            if (tag.length > 0) {
                const std::string_view whole = text.substr(0, tag.length);
                text.remove_prefix(tag.length);
                putTag(tag, whole, text);
                continue;
            }
            if (text.front() == '<')
                put("&lt;");
            else if (readLetterReference(text).length > 0) // text: no source writes them
                put("&amp;");
            else if (text.starts_with("&apos;")) // not known to HTML 4
                put("'");
            else
                putCharacter(text.front());
            text.remove_prefix(text.starts_with("&apos;") ? 6 : 1);
        }
        while (_out.ends_with('\n'))
            _out.pop_back();
        _out.erase(0, std::min(_out.find_first_not_of('\n'), _out.size()));
        return std::move(_out);
    }

private:
    void putCharacter(char c)
    {
        if (c == '\r')
            return;
        if (c == '\n' && _language.lineFeedsAreBlanks)
            _isBlankPending = !_out.empty();
        else if (c != '\n' || !std::exchange(_isLineEnded, false))
            put({&c, 1});
    }

    void put(std::string_view piece)
    {
        if (piece.empty())
            return;
        if (_isBlankPending && !_out.ends_with('\n') && !_out.ends_with(' ') &&
            piece.front() != '\n' && piece.front() != ' ')
            _out += ' ';
        _isBlankPending = false;
        _isLineEnded = false;
        _out += piece;
    }

    void endLine()
    {
        if (!_out.empty() && !_out.ends_with('\n'))
            put("\n");
        _isLineEnded = !_out.empty();
    }

    void putTag(const Tag& tag, std::string_view whole, std::string_view& rest)
    {
        const auto rule = std::find_if(_language.rules.begin(), _language.rules.end(),
                                       [&](const Rule& known) { return known.name == tag.name; });
        if (rule == _language.rules.end()) {
            if (_language.keepsUnknownTags && tag.name != "!")
                put(whole);
            return;
        }
        switch (rule->action) {
        case Action::Keep:
            put(whole);
            break;
        case Action::Replace:
            put(tag.isClosing ? rule->closing : rule->opening);
            break;
        case Action::Break:
            if (tag.isClosing)
                put(rule->closing);
            endLine();
            if (!tag.isClosing)
                put(rule->opening);
            break;
        case Action::SkipContent:
            if (!tag.isClosing && !whole.ends_with("/>"))
                skipTo(tag.name, rest);
            break;
        }
    }

    /// Passes over everything to the closing tag; without one, over nothing.
    void skipTo(const std::string& name, std::string_view& rest)
    {
        if (_unclosed.contains(name)) // so that no text is searched again and again
            return;
        for (size_t place = rest.find("</"); place != std::string_view::npos;
             place = rest.find("</", place + 2)) {
            const Tag tag = readTag(rest.substr(place));
            if (tag.length > 0 && tag.name == name) {
                rest.remove_prefix(place + tag.length);
                return;
            }
        }
        _unclosed.insert(name);
    }

    const Language& _language;
    std::string _out;
    std::set<std::string> _unclosed; ///< tags that nothing closes any more
    bool _isBlankPending = false;
    bool _isLineEnded = false; ///< by a tag: a line feed that follows is the same end
};

} // namespace

std::string fromHtml(std::string_view text)
{
    return Rewriter(html).rewritten(text);
}

std::string fromXdxf(std::string_view text)
{
    return Rewriter(xdxf).rewritten(text);
}

std::string fromPango(std::string_view text)
{
    return Rewriter(pango).rewritten(text);
}

} // namespace teskel::markup
