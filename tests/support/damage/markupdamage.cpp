// SPDX-License-Identifier: MIT
#include "tests/support/damage/damagerule.h"

namespace teskel::test
{

namespace
{
using Draft = LexiconDraft;
using Random = QRandomGenerator;

constexpr int mostBytes = 2000; // of an article

// As the first article, which every use of a lexicon shows.
QByteArray withArticle(Draft& draft, const QByteArray& article)
{
    draft.records.first().first().second = article.left(mostBytes);
    return draft.file();
}

QByteArray withRepeated(Draft& draft, Random& random, const QByteArray& text,
                        const QByteArray& head = {})
{
    const int most = mostBytes / static_cast<int>(text.size());
    return withArticle(draft, head + text.repeated(random.bounded(1, most + 1)));
}

// Words of markup in any order: what no pattern of a person has.
QByteArray tagSoup(Random& random)
{
    static const QByteArrayList words{
        "<b>",
        "</b>",
        "<table border=9>",
        "<tr>",
        "<td colspan=99>",
        "</table>",
        "<ul>",
        "<li>",
        "</br>",
        "<p>",
        "<img src=\"a\">",
        "<a href='b'>",
        "<",
        ">",
        "&",
        "&amp;",
        "&_eiu;",
        "\"",
        "'",
        "<!--",
        "-->",
        "<style>p{",
        "}</style>",
        "<font size=7>",
        "<div dir",
        "=rtl>",
        "<hr width=1e9>",
        "\n",
        "1.",
        "x",
        "<pre>",
        "<dl>",
        "<dt>",
        "<dd>",
        "<h1>",
        "<title>",
    };
    QByteArray soup;
    for (int count = random.bounded(1, 900); count > 0; --count)
        soup += words.at(random.bounded(words.size()));
    return soup;
}

const DamageRule rules[] = {
    {"tags that nest deeply",
     [](Draft& d, Random& r) { return withRepeated(d, r, r.bounded(2) ? "<b>" : "<div>"); }},
    {"tables that nest", [](Draft& d, Random& r) { return withRepeated(d, r, "<table><tr><td>"); }},
    {"lists that nest", [](Draft& d, Random& r) { return withRepeated(d, r, "<ul><li>a"); }},
    {"table with a giant grid",
     [](Draft& d, Random& r) {
         return withArticle(d, "<table><tr><td colspan=" + QByteArray::number(r.generate()) +
                                   " rowspan=" + QByteArray::number(r.generate()) + ">x</table>");
     }},
    {"many rows", [](Draft& d, Random& r) { return withRepeated(d, r, "<tr><td>x"); }},
    {"pictures of files",
     [](Draft& d, Random& r) { return withRepeated(d, r, "<img src=\"/dev/zero\" width=9>"); }},
    {"pictures of giant size",
     [](Draft& d, Random& r) {
         return withArticle(d, "<img src=x width=" + QByteArray::number(r.generate()) +
                                   " height=" + QByteArray::number(r.generate()) + ">");
     }},
    {"words that no line may end in",
     [](Draft& d, Random& r) {
         return withRepeated(d, r, "&_fna; a ", r.bounded(2) ? "<nobr>" : "<pre>");
     }},
    {"blanks that end no line by a style",
     [](Draft& d, Random& r) { return withRepeated(d, r, "ab ", "<p style='white-space:pre'>"); }},
    {"tabs on one line", [](Draft& d, Random& r) { return withRepeated(d, r, "a\t", "<pre>"); }},
    {"small capitals",
     [](Draft& d, Random& r) {
         return withRepeated(d, r, "aB ", "<p style='font-variant:small-caps'>");
     }},
    {"scripts and directions that change",
     [](Draft& d, Random& r) { return withRepeated(d, r, r.bounded(2) ? "a&_bbaa;" : "a&_fna;"); }},
    {"many fonts",
     [](Draft& d, Random& r) {
         QByteArray article;
         for (int number = r.bounded(1, 1200); number > 0; --number)
             article += "<font face=" + randomBytes(4, r).toHex() + ">a</font> ";
         return withArticle(d, article);
     }},
    {"list entries", [](Draft& d, Random& r) { return withRepeated(d, r, "<li>a", "<ol>"); }},
    {"words in nested tables",
     [](Draft& d, Random& r) {
         return withRepeated(d, r, "ab ", QByteArray("<table><tr><td>").repeated(r.bounded(1, 5)));
     }},
    {"words in narrow lines",
     [](Draft& d, Random& r) {
         return withRepeated(d, r, "ab ", QByteArray("<ul>").repeated(r.bounded(1, 30)));
     }},
    {"style sheet of many selectors",
     [](Draft& d, Random& r) {
         return withRepeated(d, r, "<b>a</b> ",
                             "<style>" + QByteArray("b,").repeated(r.bounded(1, 500)) +
                                 "b{color:red}</style>");
     }},
    {"gradient without numbers",
     [](Draft& d, Random& r) {
         return withRepeated(d, r, "<b style=\"background:qlineargradient(x:,stop: red)\">a</b>");
     }},
    {"links", [](Draft& d, Random& r) { return withRepeated(d, r, "<a href='file:///'>x</a>"); }},
    {"style sheet",
     [](Draft& d, Random& r) {
         return withRepeated(d, r, "<style>*{margin:9999px;font-size:900pt}</style>x");
     }},
    {"styles of giant lengths",
     [](Draft& d, Random& r) {
         return withRepeated(d, r, "<p style=\"margin:99999999px;text-indent:9e9em\">x");
     }},
    {"fonts of giant size",
     [](Draft& d, Random& r) {
         return withArticle(d, "<span style=\"font-size:" + QByteArray::number(r.generate()) +
                                   "pt\">x</span>");
     }},
    {"tag without an end",
     [](Draft& d, Random& r) { return withArticle(d, "x <b" + QByteArray(r.bounded(9000), ' ')); }},
    {"quotes without an end",
     [](Draft& d, Random& r) { return withRepeated(d, r, "<p align=\"left"); }},
    {"comment without an end", [](Draft& d, Random& r) { return withRepeated(d, r, "<!-- "); }},
    {"named references that are none",
     [](Draft& d, Random& r) { return withRepeated(d, r, "&bogus; "); }},
    {"references by number",
     [](Draft& d, Random& r) {
         return withRepeated(d, r, "&#" + QByteArray::number(r.generate()) + ";&#x202E;&#0; ");
     }},
    {"references by letters",
     [](Draft& d, Random& r) { return withRepeated(d, r, "&_eiu;&_ppppppppp;&_;&_na;&_cg;"); }},
    {"digits", [](Draft& d, Random& r) { return withRepeated(d, r, "1.2.33.4"); }},
    {"line feeds", [](Draft& d, Random& r) { return withRepeated(d, r, "\n"); }},
    {"one unbroken word", [](Draft& d, Random& r) { return withRepeated(d, r, "W"); }},
    {"high bytes", [](Draft& d, Random& r) { return withRepeated(d, r, "\xAD\xA0\xFF"); }},
    {"noise in an article",
     [](Draft& d, Random& r) {
         return withArticle(d, randomBytes(r.bounded(1, 5000), r).replace('\0', ' '));
     }},
    {"words of markup in any order",
     [](Draft& d, Random& r) { return withArticle(d, tagSoup(r)); }},
};
} // namespace

std::span<const DamageRule> markupDamage()
{
    return rules;
}

} // namespace teskel::test
