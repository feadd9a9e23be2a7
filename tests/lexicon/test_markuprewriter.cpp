// SPDX-License-Identifier: MIT
#include "lexicon/sources/stardict/markuprewriter.h"

#include <QTest>

namespace markup = teskel::markup;

/// Makes the rich text of a lexicon from the markup of StarDict articles.
class TestMarkupRewriter : public QObject
{
    Q_OBJECT

private slots:
    void html_data();
    void html();
    void xdxf_data();
    void xdxf();
    void pango_data();
    void pango();
    void endlessNestingTakesNoTime_data();
    void endlessNestingTakesNoTime();

private:
    static void addColumns()
    {
        QTest::addColumn<QByteArray>("text");
        QTest::addColumn<QByteArray>("rich");
    }
    static void row(const char* name, const QByteArray& text, const QByteArray& rich)
    {
        QTest::newRow(name) << text << rich;
    }
    static void compare(std::string (*rewrite)(std::string_view))
    {
        QFETCH(QByteArray, text);
        QFETCH(QByteArray, rich);
        QCOMPARE(QByteArray::fromStdString(rewrite(text.toStdString())), rich);
    }
};

void TestMarkupRewriter::html_data()
{
    addColumns();
    row("text", "Haus", "Haus");
    row("line feeds are blanks", "a\nb\r\nc", "a b c");
    row("breaks are line feeds", "a<br>b<BR/>c<br />d", "a\nb\nc\nd");
    row("empty lines stay", "a<br><br>b", "a\n\nb");
    row("no blank beside a break", "a\n<br>\nb", "a\nb");
    row("blocks", "<div>a</div><div>b</div>", "a\nb");
    row("paragraphs and breaks", "<p>a<br>b</p><p>c</p>", "a\nb\nc");
    row("lists", "<ul><li>a</li><li>b</li></ul>c", "a\nb\nc");
    row("tables", "<table><tr><td>a</td><td>b</td></tr><tr><td>c</td></tr></table>", "a b \nc ");
    row("headings", "x<h1>a</h1>b", "x\n<b>a</b>\nb");
    row("looks stay", "<b>a</b> <font color=\"#0000FF\">b</font> <i></i>",
        "<b>a</b> <font color=\"#0000FF\">b</font> <i></i>");
    row("links", "<a href=\"bword://x\">a</a>", "a");
    row("scripts and styles", "a<script>if (a < b) x()</script><style>b{}</style>c", "ac");
    row("script without an end", "a<script>b", "ab");
    row("comments", "a<!-- <b> -->c", "ac");
    row("comment without an end", "a<!-- b", "a");
    row("pictures", "a<img src='a>b.png'>c", "ac");
    row("references", "&lt;b&gt; &amp; &apos;x&apos; &auml;", "&lt;b&gt; &amp; 'x' &auml;");
    row("signs that begin no tag", "1 < 2 <3 a<b", "1 &lt; 2 &lt;3 a&lt;b");
    row("tag without an end", "a<b class='x", "a&lt;b class='x");
    row("sign at the end", "a<", "a&lt;");
    row("nothing", "", "");
    row("only breaks", "<br>\n<p></p>", "");
}

void TestMarkupRewriter::html()
{
    compare(markup::fromHtml);
}

void TestMarkupRewriter::xdxf_data()
{
    addColumns();
    row("line feeds stay", "a\nb", "a\nb");
    row("word", "<k>a</k>\nb", "<b>a</b>\nb");
    row("word and text", "<k>a</k>b", "<b>a</b>\nb");
    row("transcription", "<tr>x</tr>", "[x]");
    row("notes and examples", "<abr>n.</abr> <co>c</co> <ex>e</ex>", "<i>n.</i> <i>c</i> <i>e</i>");
    row("references to words", "<kref>b</kref>", "b");
    row("colours", "<c c=\"blue\">b</c>", "b");
    row("definitions", "<def>a</def><def>b</def>", "a\nb");
    row("looks stay", "<b>a</b><sup>x</sup>", "<b>a</b><sup>x</sup>");
    row("sounds", "a<rref>x.wav</rref>b", "ab");
}

void TestMarkupRewriter::xdxf()
{
    compare(markup::fromXdxf);
}

void TestMarkupRewriter::pango_data()
{
    addColumns();
    row("line feeds stay", "a\nb", "a\nb");
    row("looks stay", "<b>a</b><u>b</u><tt>c</tt>", "<b>a</b><u>b</u><tt>c</tt>");
    row("spans", "<span size=\"large\">a</span>", "a");
    row("references", "&lt;&apos;", "&lt;'");
}

void TestMarkupRewriter::pango()
{
    compare(markup::fromPango);
}

void TestMarkupRewriter::endlessNestingTakesNoTime_data()
{
    QTest::addColumn<QByteArray>("piece");
    for (const char* piece :
         {"<div>", "<b>", "<script>", "<script></b>", "<!", "<", "</", "<a \"", "<a '"})
        QTest::newRow(piece) << QByteArray(piece);
}

// A million of them: with work that grows with the square, the test would not end.
void TestMarkupRewriter::endlessNestingTakesNoTime()
{
    QFETCH(QByteArray, piece);
    const std::string text = piece.repeated(1000000).toStdString();
    QVERIFY(markup::fromHtml(text).size() <= 5 * text.size());
}

QTEST_APPLESS_MAIN(TestMarkupRewriter)
#include "test_markuprewriter.moc"
