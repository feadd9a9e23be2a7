// SPDX-License-Identifier: MIT
#include "lexicon/sources/tei/teilayout.h"

namespace teskel
{

namespace
{

constexpr std::string_view exampleIndent = "      ";
constexpr std::string_view noteIndent = "         ";
/// Of more words than that, none tells of the others, and a pronunciation belongs to the last.
constexpr size_t mostListedWords = 16;

struct Spoken {
    std::string word;
    std::string pronunciations; ///< each between slashes
};

void appendTo(std::string& list, std::string_view separator, std::string_view item)
{
    if (!list.empty() && !item.empty())
        list += separator;
    list += item;
}

std::string enclosed(std::string_view before, std::string_view text, std::string_view after)
{
    std::string result;
    if (!text.empty())
        ((result += before) += text) += after;
    return result;
}

void appendLine(std::string& text, std::string_view indent, std::string_view line)
{
    if (!line.empty())
        ((text += indent) += line) += '\n';
}

/// The words of a form and of the forms within it. A pronunciation belongs to the words before it
/// in its own form.
void gatherForms(const TeiNode& form, std::vector<Spoken>& words)
{
    const size_t first = words.size();
    for (const TeiNode& child : form.children) {
        if (child.is(u"form")) {
            gatherForms(child, words);
        } else if (child.is(u"orth")) {
            if (std::string word = child.content(); !word.empty())
                words.push_back({std::move(word), {}});
        } else if (child.is(u"pron")) {
            const std::string spoken = enclosed("/", child.content(), "/");
            const size_t count = words.size();
            const size_t begin = count - first > mostListedWords ? count - 1 : first;
            for (size_t i = begin; i < count; ++i)
                appendTo(words[i].pronunciations, " ", spoken);
        }
    }
}

/// "<noun, masc>" from what a gramGrp holds.
std::string grammarOf(const TeiNode& node)
{
    std::string list;
    for (const TeiNode& child : node.children)
        appendTo(list, ", ", child.content());
    return enclosed("<", list, ">");
}

/// Everything in a node that grammar and usage tell of it.
std::string marksOf(const TeiNode& node)
{
    std::string marks;
    for (const TeiNode& child : node.children) {
        if (child.is(u"gramGrp"))
            appendTo(marks, " ", grammarOf(child));
        else if (child.is(u"usg") || child.is(u"lbl"))
            appendTo(marks, " ", enclosed("[", child.content(), "]"));
    }
    return marks;
}

bool isTranslation(const TeiNode& node)
{
    return node.is(u"cit") && (node.type == u"trans" || node.type == u"translation");
}

/// "Haus <neut>" of a cit, with all its quotes.
std::string translationOf(const TeiNode& cit)
{
    std::string words;
    for (const TeiNode& child : cit.children) {
        if (child.is(u"quote") || child.is(u"orth"))
            appendTo(words, ", ", child.content());
    }
    appendTo(words, " ", marksOf(cit));
    return words;
}

/// "\"build a house\" - ein Haus bauen".
std::string exampleOf(const TeiNode& cit)
{
    std::string quote;
    std::string translations;
    for (const TeiNode& child : cit.children) {
        if (isTranslation(child))
            appendTo(translations, ", ", translationOf(child));
        else if (child.is(u"quote"))
            appendTo(quote, " ", enclosed("\"", child.content(), "\""));
    }
    appendTo(quote, " - ", translations);
    appendTo(quote, " ", marksOf(cit));
    return quote;
}

/// "Synonyms: {home}, {dwelling}" or "see: {houses}".
std::string referencesOf(const TeiNode& xr)
{
    std::string list;
    size_t count = 0;
    for (const TeiNode& child : xr.children) {
        if (child.is(u"ref") || child.is(u"ptr")) {
            const std::string word = enclosed("{", child.content(), "}");
            appendTo(list, ", ", word);
            count += word.empty() ? 0 : 1;
        }
    }
    if (list.empty())
        list = xr.content();
    if (xr.type == u"syn")
        return enclosed(count > 1 ? "Synonyms: " : "Synonym: ", list, {});
    if (xr.type == u"ant")
        return enclosed(count > 1 ? "Antonyms: " : "Antonym: ", list, {});
    return enclosed("see: ", list, {});
}

/// Lays out senses, and what stands beside them in an entry, one below the other.
class Lines
{
public:
    void addEntry(const TeiNode& entry)
    {
        addSenses(entry);
        for (const TeiNode& child : entry.children) {
            if (!child.is(u"form") && !child.is(u"gramGrp") && !child.is(u"sense"))
                addPart(child);
        }
    }

    std::string text;

private:
    /// The senses among the children, numbered when there are several.
    void addSenses(const TeiNode& node)
    {
        size_t count = 0;
        for (const TeiNode& child : node.children)
            count += child.is(u"sense") ? 1 : 0;
        size_t number = 0;
        for (const TeiNode& child : node.children) {
            if (child.is(u"sense"))
                addSense(child, count > 1 && !_isWithinSense ? std::to_string(++number) + "." : "");
        }
    }

    void addSense(const TeiNode& sense, const std::string& number)
    {
        std::string translations;
        std::string definition;
        for (const TeiNode& child : sense.children) {
            if (isTranslation(child))
                appendTo(translations, ", ", translationOf(child));
            else if (child.is(u"def"))
                appendTo(definition, "\n", child.content());
        }
        std::string first = number;
        appendTo(first, " ", marksOf(sense));
        appendTo(first, " ", translations.empty() ? definition : translations);
        appendLine(text, "", first);
        if (!translations.empty())
            appendLine(text, "", definition);
        const bool wasWithinSense = std::exchange(_isWithinSense, true);
        addSenses(sense);
        for (const TeiNode& child : sense.children) {
            if (!child.is(u"gramGrp") && !child.is(u"usg") && !child.is(u"lbl") &&
                !child.is(u"def") && !child.is(u"sense") && !isTranslation(child))
                addPart(child);
        }
        _isWithinSense = wasWithinSense;
    }

    void addPart(const TeiNode& part)
    {
        if (part.is(u"xr"))
            appendLine(text, "   ", referencesOf(part));
        else if (isTranslation(part))
            appendLine(text, "", translationOf(part));
        else if (part.is(u"cit") || part.is(u"eg"))
            appendLine(text, exampleIndent, exampleOf(part));
        else if (part.is(u"note"))
            appendLine(text, noteIndent, enclosed("Note: ", part.content(), {}));
        else if (part.is(u"hom"))
            addHomograph(part);
        else
            appendLine(text, "", part.content());
    }

    void addHomograph(const TeiNode& homograph)
    {
        appendLine(text, "", marksOf(homograph));
        addEntry(homograph);
    }

    bool _isWithinSense = false;
};

} // namespace

TeiEntry TeiEntry::layOut(const TeiNode& entry)
{
    TeiEntry result;
    std::vector<Spoken> words;
    std::string grammar;
    for (const TeiNode& child : entry.children) {
        if (child.is(u"form"))
            gatherForms(child, words);
        for (const TeiNode& inner : child.children) {
            if (child.is(u"form") && inner.is(u"gramGrp"))
                appendTo(grammar, " ", grammarOf(inner));
        }
    }
    for (const TeiNode& child : entry.children) {
        if (child.is(u"gramGrp"))
            appendTo(grammar, " ", grammarOf(child));
    }
    for (const Spoken& spoken : words) {
        TeiEntry::Form form{spoken.word, spoken.word};
        appendTo(form.line, " ", spoken.pronunciations);
        std::string others;
        for (const Spoken& other : words) {
            if (other.word != spoken.word && words.size() <= mostListedWords)
                appendTo(others, ", ", other.word);
        }
        appendTo(form.line, " ", grammar);
        appendTo(form.line, "\n", enclosed("(", others, ")"));
        result.forms.push_back(std::move(form));
    }
    Lines lines;
    lines.addEntry(entry);
    result.text = std::move(lines.text);
    return result;
}

} // namespace teskel
