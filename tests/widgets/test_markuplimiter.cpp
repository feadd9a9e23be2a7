// SPDX-License-Identifier: MIT
// An article looks as QTextEdit shows it, unless it could stop the program: then it is plain text.
#include "widgets/article/markuplimiter.h"
#include "widgets/article/qteskeledit.h"

#include <QRandomGenerator>
#include <QTest>
#include <QTextTable>

#include <span>

using teskel::MarkupLimiter;

namespace
{

/// As long as the longest article.
constexpr qsizetype longestArticle = 32'767;

/// What QTextEdit makes of the markup by itself; it loads nothing either.
class Bare : public QTextEdit
{
public:
    Bare()
    {
        document()->setDefaultStyleSheet(
            QStringLiteral("p { margin-top: 4px; margin-bottom: 4px; }"));
    }
    QVariant loadResource(int type, const QUrl&) override
    {
        return type == QTextDocument::ImageResource ? QVariant(QImage()) : QVariant(QByteArray(""));
    }
};

/// A view that has laid out and painted a text.
class Shown : public QTeskelEdit
{
public:
    explicit Shown(const QString& text)
    {
        resize(320, 240);
        show();
        setText(text);
        grab();
        selectAll();
        markedText();
        grab();
    }
};

int tableDepth(const QTextFrame* frame)
{
    int deepest = 0;
    for (const QTextFrame* child : frame->childFrames())
        deepest = qMax(deepest, 1 + tableDepth(child));
    return deepest;
}

int cellCount(const QTextFrame* frame)
{
    int count = 0;
    for (QTextFrame* child : frame->childFrames()) {
        const auto* const table = qobject_cast<QTextTable*>(child);
        count += cellCount(child) + (table == nullptr ? 0 : table->rows() * table->columns());
    }
    return count;
}

QString table(int rows, int columns, const QString& cell = QStringLiteral("x"))
{
    const QString row = QStringLiteral("<tr>") + (QStringLiteral("<td>") + cell).repeated(columns);
    return QStringLiteral("<table>") + row.repeated(rows) + QStringLiteral("</table>");
}

/// A text of up to `length` of the parts.
QString randomText(QRandomGenerator& random, std::span<const char* const> parts, int length)
{
    QString text;
    for (int left = random.bounded(1, length + 1); left > 0; --left)
        text += QString::fromUtf8(parts[random.bounded(quint32(parts.size()))]);
    return text;
}

constexpr const char* tagParts[] = {
    "<table>",
    "<tr>",
    "<td>",
    "<th>",
    "</td>",
    "</tr>",
    "</table>",
    "<b>",
    "</b>",
    "<i>",
    "</i>",
    "<p>",
    "</p>",
    "<ul>",
    "<li>",
    "</ul>",
    "<dl>",
    "<dd>",
    "<br>",
    "</br>",
    "<hr>",
    "<img>",
    "<div>",
    "</div>",
    "<div/>",
    "<head>",
    "</head>",
    "<title>",
    "</title>",
    "<style>",
    "</style>",
    "<foo>",
    "</foo>",
    "<pre>",
    "</pre>",
    "<!--",
    "-->",
    "<!x>",
    "<",
    ">",
    "</",
    "/>",
    "<>",
    "</>",
    "\"",
    "'",
    "&",
    "&amp;",
    "&nbsp;",
    "&lt;",
    "<R&D>",
    "<b x=\"a>b\">",
    "<b x='a>b\\'",
    "< b >",
    "<\"b\" x>",
    "</ b x>",
    "<B",
    "<- ",
    "-> ",
    "x <- y ",
    "x",
    " ",
    "\n",
    "1 < 2 and 3 > 2",
    "vegetable ",
    "\u00E4",
    "imge",
    "<td rowspan=2>",
    "<th colspan=3>",
    "<font color='#0000FF'>",
};

constexpr const char* tableParts[] = {
    "<table>",
    "<table>",
    "<tr>",
    "<td>",
    "<th>",
    "<tbody>",
    "<caption>",
    "</table>",
    "</table>",
    "</tr>",
    "</td>",
    "</th>",
    "</caption>",
    "<thead>",
    "</tbody>",
    "<p>",
    "</p>",
    "<ul><li>",
    "</ul>",
    "x",
    " ",
    "<b>",
    "</b>",
    "<br>",
    "<td rowspan=2>",
    "</br>",
    "<head>",
    "</head>",
    "<dd>",
    "<td colspan=2>",
    "<table><tr><td>",
    "<tr><td>x",
    "<th colspan=2 rowspan=3>",
};

} // namespace

class TestMarkupLimiter : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void ordinaryTextIsWithinTheLimits_data();
    void ordinaryTextIsWithinTheLimits();
    void showsWhatTheBareViewShows_data();
    void showsWhatTheBareViewShows();
    void showsRandomTextAsTheBareViewDoes();
    void neverBuildsMoreTablesThanTheLimits();
    void limitsAreWhereTheyAre_data();
    void limitsAreWhereTheyAre();
    void nestingBeyondTheLimitIsPlainText_data();
    void nestingBeyondTheLimitIsPlainText();
    void tricksDoNotHideNesting_data();
    void tricksDoNotHideNesting();
    void endedElementsDoNotCount_data();
    void endedElementsDoNotCount();
    void tricksDoNotHideTables_data();
    void tricksDoNotHideTables();
    void hugeLengthsArePlainText_data();
    void hugeLengthsArePlainText();
    void modestLengthsAreShown_data();
    void modestLengthsAreShown();
    void hostileTextIsShownPlain_data();
    void hostileTextIsShownPlain();
    void longTextWithinTheLimitsIsShown_data();
    void longTextWithinTheLimitsIsShown();
};

void TestMarkupLimiter::ordinaryTextIsWithinTheLimits_data()
{
    QTest::addColumn<QString>("text");
    QTest::addRow("empty") << QString();
    QTest::addRow("article") << QStringLiteral("<p><b>house</b></p><p>"
                                               "<b><font color=\"#0000FF\">1.</font></b> Haus</p>");
    QTest::addRow("sloppy") << QStringLiteral("a < b & c <i>unclosed <b>x</i>");
    QTest::addRow("deep but short") << QStringLiteral("<div>").repeated(100);
    QTest::addRow("words") << QStringLiteral("vegetable comfortable img table imgs<p>tables");
    QTest::addRow("many paragraphs")
        << QStringLiteral("<p><b><font color=\"#0000FF\">1.</font></b> <i>word</i> R&D<br>x</p>\n")
               .repeated(2000);
    QTest::addRow("many open tags in paragraphs")
        << QStringLiteral("<p>x <- y <b>z <i></p>").repeated(1000);
    QTest::addRow("many references") << QStringLiteral("R&D &amp; &auml; ").repeated(1000);
    QTest::addRow("comparisons") << QStringLiteral("if a < b & c > d, x < y f&#252;r z > w");
    QTest::addRow("placeholders")
        << QStringLiteral("<&Ouml;l> in <Gef&auml;&szlig;> <&#214;l>").repeated(80);
    QTest::addRow("table") << QStringLiteral("<table border=\"1\" width=\"100%\">"
                                             "<tr><td colspan=2>a &amp; b<td>c"
                                             "<tr><td rowspan=2><b>d</b></table>");
    QTest::addRow("table with references")
        << QStringLiteral("<table title='R&#38;D'><tr><td title='&auml;'>x</table>");
    QTest::addRow("conjugation") << table(40, 8);
    QTest::addRow("coloured table")
        << QStringLiteral("<table bgcolor=#99999999 style='color:#123456'><tr><td>x</table>");
    QTest::addRow("style sheet") << QStringLiteral("<style>b { color: red } </style>") +
                                        QStringLiteral("<p><b>x</b></p>").repeated(500);
    QTest::addRow("pictures") << QStringLiteral("<img src=x.png width=20 height=20>").repeated(50);
}

void TestMarkupLimiter::ordinaryTextIsWithinTheLimits()
{
    QFETCH(QString, text);
    QVERIFY(!MarkupLimiter::isBeyondLimits(text));
}

void TestMarkupLimiter::showsWhatTheBareViewShows_data()
{
    QTest::addColumn<QString>("text");
    // Each beside a word, a tag or an amount that once made the view read it in another way.
    for (const char* text : {
             "vegetable: 1 < 2 and 3 > 2",
             "comfortable x <- y <b>fett</b>",
             "<i>an italic\nacross a newline</i> table",
             "imgs <b>a</p>b</b>c",
             "table <i>a<p>b</i>c",
             "img &lt;b&gt; &nbsp; &x; &",
             "<table><tr><td>1 < 2 and 3 > 2</table>",
             "a<table><tr><td>b</table>c",
             "<td>lonely",
             "<tr><td>a<td>b<tr><td>c",
             "<table>no cells</table>",
             "<img src=x>word",
             "a<img alt=b title=c>d",
             "table <!-- <b> -->x",
             "table <style>b{color:red}</style><b>x",
             "table <title>t</title>x",
             "table <b",
             "table <b x=\"</b>y",
             "table &#66; &#x42;",
             "<!--StartFragment--><b>img</b><!--EndFragment--> table",
         })
        QTest::addRow("%s", text) << QString::fromUtf8(text);
    QTest::addRow("many tags")
        << QStringLiteral("x <- y <b>a</b>\n<i>b\nc</i></p><p>").repeated(99);
    QTest::addRow("many references") << QStringLiteral("a & b &amp c &amp; d&").repeated(200);
}

void TestMarkupLimiter::showsWhatTheBareViewShows()
{
    QFETCH(QString, text);
    Bare bare;
    bare.setHtml(text);
    const Shown view(text);
    QCOMPARE(view.toPlainText(), bare.toPlainText());
    QCOMPARE(view.toHtml(), bare.toHtml());
    QCOMPARE(view.text(), text);
}

void TestMarkupLimiter::showsRandomTextAsTheBareViewDoes()
{
    QRandomGenerator random(7);
    Bare bare;
    QTeskelEdit view;
    view.resize(200, 200);
    int shown = 0;
    for (int round = 0; round < 1500; ++round) {
        const QString text = randomText(random, tagParts, 30);
        view.setText(text);
        QCOMPARE(view.text(), text);
        if (MarkupLimiter::isBeyondLimits(text))
            continue;
        ++shown;
        bare.setHtml(text);
        QCOMPARE(view.toPlainText(), bare.toPlainText());
        QCOMPARE(view.toHtml(), bare.toHtml());
    }
    // Nearly none of them is large.
    QVERIFY2(shown > 1400, qPrintable(QString::number(shown)));
}

void TestMarkupLimiter::neverBuildsMoreTablesThanTheLimits()
{
    QRandomGenerator random(11);
    QTeskelEdit view;
    int deepest = 0;
    for (int round = 0; round < 1500; ++round) {
        const QString text = randomText(random, tableParts, 60);
        view.setText(text);
        const QTextFrame* const root = view.document()->rootFrame();
        deepest = qMax(deepest, tableDepth(root));
        QVERIFY2(tableDepth(root) <= MarkupLimiter::maxTableDepth, qPrintable(text));
        QVERIFY2(cellCount(root) <= MarkupLimiter::maxCells, qPrintable(text));
        if (MarkupLimiter::isBeyondLimits(text))
            QCOMPARE(view.toPlainText(), text);
    }
    QVERIFY(deepest > 1);
}

void TestMarkupLimiter::limitsAreWhereTheyAre_data()
{
    QTest::addColumn<QString>("atLimit");
    QTest::addColumn<QString>("beyond");
    const auto row = [](const char* name, const QString& unit, int limit) {
        QTest::addRow("%s", name) << unit.repeated(limit) + u'x' << unit.repeated(limit + 1) + u'x';
    };
    row("elements", QStringLiteral("<b>"), MarkupLimiter::maxDepth);
    row("tables", QStringLiteral("<table><tr><td>"), MarkupLimiter::maxTableDepth);
    row("rows", QStringLiteral("<tr><td>x"), MarkupLimiter::maxCells);
    row("columns", QStringLiteral("<td>x"), MarkupLimiter::maxCells);
    row("single cells", QStringLiteral("<table><tr><td>x</table>"), MarkupLimiter::maxCells);
    row("pictures", QStringLiteral("<img src=x.png>"), MarkupLimiter::maxPictures);
    QTest::addRow("grid") << table(40, 50) << table(40, 51);
    QTest::addRow("mostly empty grid")
        << QStringLiteral("<table><tr>") + QStringLiteral("<td>").repeated(100) +
               QStringLiteral("<tr><td>").repeated(19)
        << QStringLiteral("<table><tr>") + QStringLiteral("<td>").repeated(100) +
               QStringLiteral("<tr><td>").repeated(20);
    QTest::addRow("late wide row")
        << QStringLiteral("<table>") + QStringLiteral("<tr><td>").repeated(19) +
               QStringLiteral("<tr>") + QStringLiteral("<td>").repeated(100)
        << QStringLiteral("<table>") + QStringLiteral("<tr><td>").repeated(20) +
               QStringLiteral("<tr>") + QStringLiteral("<td>").repeated(100);
}

void TestMarkupLimiter::limitsAreWhereTheyAre()
{
    QFETCH(QString, atLimit);
    QFETCH(QString, beyond);
    QVERIFY(!MarkupLimiter::isBeyondLimits(atLimit));
    QVERIFY(MarkupLimiter::isBeyondLimits(beyond));
}

void TestMarkupLimiter::nestingBeyondTheLimitIsPlainText_data()
{
    QTest::addColumn<QString>("tag");
    for (const char* tag : {"div", "b", "ul", "blockquote", "font", "span", "unknown", "body", "x1",
                            "pre", "table", "style", "title"})
        QTest::addRow("%s", tag) << QString::fromLatin1(tag);
}

void TestMarkupLimiter::nestingBeyondTheLimitIsPlainText()
{
    QFETCH(QString, tag);
    const QString text = (u'<' + tag + u'>').repeated(1000) + QStringLiteral(" words");
    const Shown view(text);
    QCOMPARE(view.toPlainText(), text);
    QCOMPARE(view.text(), text);
}

void TestMarkupLimiter::tricksDoNotHideNesting_data()
{
    QTest::addColumn<QString>("unit");
    QTest::addRow("end tag in a comment") << QStringLiteral("<div><!-- </div> -->");
    QTest::addRow("end tag in a declaration") << QStringLiteral("<div><! </div>");
    QTest::addRow("end tag in an attribute") << QStringLiteral("<div><b title=\"</div>\">");
    QTest::addRow("quoted end of the tag") << QStringLiteral("<div><b title=\"></div>\">");
    QTest::addRow("escaped quote") << QStringLiteral("<div><b title='\\'></div>'>");
    QTest::addRow("half a quote") << QStringLiteral("<div><b x=a' y='></div>'>");
    QTest::addRow("end tag in a tag without end") << QStringLiteral("<div><i </div>");
    QTest::addRow("end tag in a style sheet") << QStringLiteral("<div><style></style><p></b>");
    QTest::addRow("end tag of another element") << QStringLiteral("<div></b </div>");
    QTest::addRow("end tag with a longer name") << QStringLiteral("<div></divx>");
    QTest::addRow("quoted name") << QStringLiteral("<\"div\">");
    QTest::addRow("blank before the name") << QStringLiteral("< div>");
    QTest::addRow("upper case") << QStringLiteral("<DIV>");
    QTest::addRow("slash in an attribute") << QStringLiteral("<a href=x/y>");
    QTest::addRow("back into an ended element") << QStringLiteral("<div><br></div></br>");
    QTest::addRow("back over a blank") << QStringLiteral("<div><hr></div> </hr>");
    QTest::addRow("end tag of an element that a reference names")
        << QStringLiteral("<&amp;><b></&AMP;><div></b></&amp;>");
    QTest::addRow("name with a numeric reference") << QStringLiteral("<di&#118;>");
    QTest::addRow("end of an element that a paragraph had ended")
        << QStringLiteral("<p><b><p></b><div><div>");
    QTest::addRow("within a fragment")
        << QStringLiteral("<b x='<!--StartFragment-->'></b></b><div>");
}

void TestMarkupLimiter::tricksDoNotHideNesting()
{
    QFETCH(QString, unit);
    const QString text = unit.repeated(600) + u'x';
    QVERIFY(MarkupLimiter::isBeyondLimits(text));
    const Shown view(text);
    QCOMPARE(view.toPlainText(), text);
}

void TestMarkupLimiter::endedElementsDoNotCount_data()
{
    QTest::addColumn<QString>("unit");
    for (const char* unit :
         {"<p>",       "<li>",         "<p><b>x</p>",    "<b>x</b>",     "<b><i>x</b>",
          "<div/>",    "<br>",         "<br></br>",      "<hr/>",        "<dl><dd>x<dd>y</dl>",
          "<B>x</b >", "<\"b\">x</b>", "<b x='>'>y</b>", "<>",           "< >",
          "</p>",      "<-></->",      "<R&D></R&D>",    "<!-- <b> -->", "x<i\n>y</i\n>"})
        QTest::addRow("%s", unit) << QString::fromLatin1(unit);
}

void TestMarkupLimiter::endedElementsDoNotCount()
{
    QFETCH(QString, unit);
    QVERIFY(!MarkupLimiter::isBeyondLimits(unit.repeated(1000)));
}

void TestMarkupLimiter::tricksDoNotHideTables_data()
{
    QTest::addColumn<QString>("text");
    const QString simple = QStringLiteral("<table><tr><td>x</table>");
    // The document puts each into the one before.
    QTest::addRow("tables between cells")
        << QStringLiteral("<table><tr><td>a</td>") + simple.repeated(30);
    QTest::addRow("tables between rows") << QStringLiteral("<table>") + simple.repeated(30);
    QTest::addRow("tables in a caption")
        << QStringLiteral("<table><caption>") + simple.repeated(30);
    // A hidden table ends the one around it.
    QTest::addRow("hidden table") << QStringLiteral("<table><tr><td>x<title>") + simple;
    QTest::addRow("cells without tables")
        << QStringLiteral("<tr><td><table>").repeated(MarkupLimiter::maxTableDepth + 1);
    for (const char* span :
         {"colspan=2000000000", "ROWSPAN = \"99999\"", "colspan='2001'", "rowspan=+2147483647",
          "rowspan=50 colspan=50", "rowspan=2&#48;00", "rowsp&#97;n=9999", "x='' rowspan=9999",
          "rowspan=1 rowspan=9999", "rowspan\n=\n9999", "\"rowspan\"=\"9999\""})
        QTest::addRow("%s", span)
            << QStringLiteral("<table><tr><td %1>x</table>").arg(QString::fromLatin1(span));
    QTest::addRow("hanging cells")
        << QStringLiteral("<table>") + QStringLiteral("<tr><td rowspan=50>x").repeated(50);
    QTest::addRow("named by a reference") << QStringLiteral("<t&#97;ble>") + simple;
    QTest::addRow("cells moved by a style")
        << QStringLiteral("<p style='-qt-paragraph-type:empty'>") + simple;
}

void TestMarkupLimiter::tricksDoNotHideTables()
{
    QFETCH(QString, text);
    const Shown view(text);
    QCOMPARE(view.toPlainText(), text);
}

void TestMarkupLimiter::hugeLengthsArePlainText_data()
{
    QTest::addColumn<QString>("markup");
    for (const char* markup :
         {"<table width=2147483647><tr><td>word</td></tr></table>",
          "<table width='2147483647%'><tr><td>word</td></tr></table>",
          "<table border=9999999 style='border-style:dotted'><tr><td>word</td></tr></table>",
          "<table cellpadding=2147483647><tr><td>word</td></tr></table>",
          "<table CELLSPACING=2147483647><tr><td>word</td></tr></table>",
          "<table><tr><td width=2147483647>word</td></tr></table>",
          "<table><tr><td style='padding:2147483647px'>word</td></tr></table>",
          "<table style='margin:99999999px'><tr><td>word</td></tr></table>",
          "<table cellpadding=1e9><tr><td>word</td></tr></table>",
          "<table cellpadding=9.5e+9><tr><td>word</td></tr></table>",
          "<table cellspacing=inf><tr><td>word</td></tr></table>",
          "<table cellspacing=' -INF'><tr><td>word</td></tr></table>",
          "<table cellspacing=nan><tr><td>word</td></tr></table>",
          "<table cellp&#97;dding=99999999><tr><td>word</td></tr></table>",
          "<table cellpadding=9&#x39;999999><tr><td>word</td></tr></table>",
          "<table><tr><td style='padding:999999em'>word</td></tr></table>",
          "<table><tr><td style='padding:99\\65 m;font-size:9999px'>word</td></tr></table>",
          "<table><tr><td style='font-size:9999px;padding:199ex'>word</td></tr></table>",
          "<table><tr><td><div style='margin:2147483647px'>word</div></td></tr></table>",
          "<table><tr><td style='color:red/*;color:*/;padding:2147483647px'>word",
          "<style>td{padding:99999999px}</style><table><tr><td>word</td></tr></table>",
          "<style>td{padding:9999<!-- -->9999px}</style><table><tr><td>word</td></tr></table>",
          "<style>td{padding:99999999px}</x><td>word",
          "<td style='padding:99999999px'>word",
          "<p style='margin:2147483647px'>word",
          "<span style='font-size:2147483647px'>word</span>",
          "<p style='line-height:2147483647%'>word</p>",
          "word<img src=x width=9999999 height=9999999>",
          "word<img src=x align=left width=1e300 height=inf>"})
        QTest::addRow("%s", markup) << QString::fromLatin1(markup);
    // Each length is modest; together they are higher or wider than a layout can be.
    const QString words = QStringLiteral("xxxxxxxx ").repeated(3000);
    for (const char* start : {"<span style='font-size:2000px'>", "<p style='line-height:9999px'>",
                              "<p style='line-height:9999%'>", "<p style='line-height:99'>",
                              "<p style='font:italic 2000pt x'>", "<style>p{font-size:2000px}</x>"})
        QTest::addRow("%s words", start) << QString::fromLatin1(start) + words;
    for (const char* unit : {"<p style='margin-top:10000px'>x", "<p style='padding:20000px'>x",
                             "<img height=30000><br>", "<table height=30000><tr><td>x</table>"})
        QTest::addRow("many %s", unit) << QString::fromLatin1(unit).repeated(250);
    QTest::addRow("many wide cells")
        << QStringLiteral("<table cellpadding=9999><tr>") + QStringLiteral("<td>x").repeated(1000);
    QTest::addRow("many wide elements") << QStringLiteral("<style>div{margin:9999px}</style>") +
                                               QStringLiteral("<div>x</div>").repeated(1000);
}

void TestMarkupLimiter::hugeLengthsArePlainText()
{
    QFETCH(QString, markup);
    const Shown view(markup);
    QCOMPARE(view.toPlainText(), markup);
}

void TestMarkupLimiter::modestLengthsAreShown_data()
{
    QTest::addColumn<QString>("markup");
    for (const char* markup : {
             "<font size=2147483647>word</font>",
             "<font size=+2147483647>word</font>",
             "<font size=-2147483648>word</font>",
             "<span style='font-size:99999px'>word</span>",
             "<span style='font-size:999.5pt'>word</span>",
             "<p style='line-height:99999px'>word</p>",
             "<p style='text-indent:-99999px'>word</p>",
             "<p style='margin-left:999999px'>word</p>",
             "<p style='-qt-block-indent:2147483647'>word</p>",
             "<p style='-qt-paragraph-type:empty'></p>word",
             "<p style='color:#99999999;background-color:#99999999'>word</p>",
             "word<hr width=999999>",
             "word<hr width='100%'>",
             "<ol start=2147483647><li>word</li><li>word</li></ol>",
             "<ol type=a start=2147483647><li>word</li></ol>",
             "<ol type=i start=2147483647><li>word</li></ol>",
             "<ul style='-qt-list-indent:2147483647'><li>word</li></ul>",
             "<table height=99999><tr><td>word</td></tr></table>",
             "<table width=9999 bgcolor=#00001e><tr><td>word</td></tr></table>",
             "<table width='100.25%'><tr><td width=33.333333%>word</td></tr></table>",
             "<table border=999999 style='border-style:dotted'><tr><td>word</td></tr></table>",
             "<table cellpadding=9999 cellspacing=9999><tr><td>word</td></tr></table>",
             "<table><tr><td style='padding:99em'>word</td></tr></table>",
             "<table><tr><td title=2147483647><a href=x2147483647>word</a></td></tr></table>",
             "word<img src=x width=999999 height=999999>",
         })
        QTest::addRow("%s", markup) << QString::fromLatin1(markup);
    QTest::addRow("many coloured, bold words in a usual size")
        << QStringLiteral("<span style='color:rgb(255,255,255); font-weight:600; font-size:12pt;"
                          " line-height:120%'>word word</span> ")
               .repeated(300);
    QTest::addRow("table in cells of a usual width")
        << QStringLiteral("<table width=600 cellpadding=5 border=1>") +
               QStringLiteral("<tr><td width=300>word<td width=300>word").repeated(500);
}

void TestMarkupLimiter::modestLengthsAreShown()
{
    QFETCH(QString, markup);
    const Shown view(markup);
    QVERIFY(view.toPlainText().contains(QLatin1String("word")));
    QVERIFY(!view.toPlainText().contains(u'<'));
}

void TestMarkupLimiter::hostileTextIsShownPlain_data()
{
    QTest::addColumn<QString>("unit");
    for (const char* unit : {"<table><tr><td>",
                             "<div>",
                             "<ul><li>",
                             "<dl><dd>",
                             "<blockquote>",
                             "<b>",
                             "<table>",
                             "<tr><td colspan=20000 rowspan=20000>a",
                             "<img src=x.png>",
                             "<style>",
                             "<td>",
                             "<font size=+9>",
                             "<a href=x>",
                             "<div style='float:left'>",
                             "<sub>",
                             "<pre>\t",
                             "<table><tr><td>x",
                             "<table><caption>",
                             "<style>b{color:red}</x><b>x",
                             "<img align=left width=3000>"})
        QTest::addRow("%s", unit) << QString::fromLatin1(unit);
}

void TestMarkupLimiter::hostileTextIsShownPlain()
{
    QFETCH(QString, unit);
    const QString text = unit.repeated(longestArticle / unit.size());
    const Shown view(text);
    QCOMPARE(view.text(), text);
    QCOMPARE(view.toPlainText(), text);
}

void TestMarkupLimiter::longTextWithinTheLimitsIsShown_data()
{
    QTest::addColumn<QString>("unit");
    for (const char* unit : {"<!--", "<", "&#", "&", "<p>x", "<li>x", "</p>x", "</table>x", "<hr>x",
                             "<p style='margin:99px'>x", "<i>x</i>", "<br>x", "<th>x"})
        QTest::addRow("%s", unit) << QString::fromLatin1(unit);
}

void TestMarkupLimiter::longTextWithinTheLimitsIsShown()
{
    QFETCH(QString, unit);
    const QString text = unit.repeated(longestArticle / unit.size());
    QVERIFY(!MarkupLimiter::isBeyondLimits(text));
    QCOMPARE(Shown(text).text(), text);
}

QTEST_MAIN(TestMarkupLimiter)
#include "test_markuplimiter.moc"
