// SPDX-License-Identifier: MIT
// An article looks as QTextEdit shows it, unless it could stop the program: then it is plain text.
#include "widgets/article/markuplimiter.h"
#include "widgets/article/qteskeledit.h"

#include <QRandomGenerator>
#include <QTest>
#include <QTextTable>

#include <span>

using namespace Qt::StringLiterals;

using teskel::MarkupLimiter;

namespace
{

/// As long as the longest article.
constexpr qsizetype longestArticle = 32'767;

/// What QTextEdit makes of the markup by itself; it loads nothing either.
class Bare : public QTextEdit
{
public:
    Bare() { document()->setDefaultStyleSheet(u"p { margin-top: 4px; margin-bottom: 4px; }"_s); }
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

/// Whether `text` is shown as it stands, or its beginning with a sentence about the rest.
bool isShownPlain(const QTeskelEdit& view, const QString& text)
{
    const QString shown = view.toPlainText();
    const qsizetype sentence = shown.lastIndexOf(u"\nThe last "_s);
    return shown == text || (sentence > 0 && text.startsWith(shown.first(sentence)));
}

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

QString table(int rows, int columns, const QString& cell = u"x"_s)
{
    const QString row = u"<tr>"_s + (u"<td>"_s + cell).repeated(columns);
    return u"<table>"_s + row.repeated(rows) + u"</table>"_s;
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

private slots:
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
    QTest::addRow("article") << u"<p><b>house</b></p><p>"
                                "<b><font color=\"#0000FF\">1.</font></b> Haus</p>"_s;
    QTest::addRow("sloppy") << u"a < b & c <i>unclosed <b>x</i>"_s;
    QTest::addRow("deep but short") << u"<div>"_s.repeated(100);
    QTest::addRow("words") << u"vegetable comfortable img table imgs<p>tables"_s;
    QTest::addRow("many paragraphs")
        << u"<p><b><font color=\"#0000FF\">1.</font></b> <i>word</i> R&D<br>x</p>\n"_s.repeated(
               2000);
    QTest::addRow("many open tags in paragraphs") << u"<p>x <- y <b>z <i></p>"_s.repeated(1000);
    QTest::addRow("many references") << u"R&D &amp; &auml; "_s.repeated(1000);
    QTest::addRow("comparisons") << u"if a < b & c > d, x < y f&#252;r z > w"_s;
    QTest::addRow("placeholders") << u"<&Ouml;l> in <Gef&auml;&szlig;> <&#214;l>"_s.repeated(80);
    QTest::addRow("table") << u"<table border=\"1\" width=\"100%\">"
                              "<tr><td colspan=2>a &amp; b<td>c"
                              "<tr><td rowspan=2><b>d</b></table>"_s;
    QTest::addRow("table with references")
        << u"<table title='R&#38;D'><tr><td title='&auml;'>x</table>"_s;
    QTest::addRow("conjugation") << table(40, 8);
    QTest::addRow("coloured table")
        << u"<table bgcolor=#99999999 style='color:#123456'><tr><td>x</table>"_s;
    QTest::addRow("style sheet") << u"<style>b { color: red } </style>"_s +
                                        u"<p><b>x</b></p>"_s.repeated(500);
    QTest::addRow("pictures") << u"<img src=x.png width=20 height=20>"_s.repeated(50);
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
    QTest::addRow("many tags") << u"x <- y <b>a</b>\n<i>b\nc</i></p><p>"_s.repeated(99);
    QTest::addRow("many references") << u"a & b &amp c &amp; d&"_s.repeated(200);
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
    row("elements", u"<b>"_s, MarkupLimiter::maxDepth);
    row("tables", u"<table><tr><td>"_s, MarkupLimiter::maxTableDepth);
    row("rows", u"<tr><td>x"_s, MarkupLimiter::maxCells);
    row("columns", u"<td>x"_s, MarkupLimiter::maxCells);
    row("single cells", u"<table><tr><td>x</table>"_s, MarkupLimiter::maxCells);
    row("pictures", u"<img src=x.png>"_s, MarkupLimiter::maxPictures);
    QTest::addRow("grid") << table(40, 50) << table(40, 51);
    const auto sheet = [](qsizetype size) {
        return u"<style>"_s + QString(size, u'x') + u"</style>"_s;
    };
    QTest::addRow("style sheet") << sheet(65'520) << sheet(65'521);
    const QString again = u"<style>"_s + QString(984, u'x');
    QTest::addRow("style sheet that is read again")
        << again + u"</x>"_s.repeated(65) << again + u"</x>"_s.repeated(66);
    QTest::addRow("elements under a style sheet")
        << sheet(984) + u"<br>"_s.repeated(10'000) << sheet(984) + u"<br>"_s.repeated(10'001);
    QTest::addRow("mostly empty grid")
        << u"<table><tr>"_s + u"<td>"_s.repeated(100) + u"<tr><td>"_s.repeated(19)
        << u"<table><tr>"_s + u"<td>"_s.repeated(100) + u"<tr><td>"_s.repeated(20);
    QTest::addRow("late wide row")
        << u"<table>"_s + u"<tr><td>"_s.repeated(19) + u"<tr>"_s + u"<td>"_s.repeated(100)
        << u"<table>"_s + u"<tr><td>"_s.repeated(20) + u"<tr>"_s + u"<td>"_s.repeated(100);
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
    const QString text = (u'<' + tag + u'>').repeated(1000) + u" words"_s;
    const Shown view(text);
    QVERIFY(isShownPlain(view, text));
    QCOMPARE(view.text(), text);
}

void TestMarkupLimiter::tricksDoNotHideNesting_data()
{
    QTest::addColumn<QString>("unit");
    QTest::addRow("end tag in a comment") << u"<div><!-- </div> -->"_s;
    QTest::addRow("end tag in a declaration") << u"<div><! </div>"_s;
    QTest::addRow("end tag in an attribute") << u"<div><b title=\"</div>\">"_s;
    QTest::addRow("quoted end of the tag") << u"<div><b title=\"></div>\">"_s;
    QTest::addRow("escaped quote") << u"<div><b title='\\'></div>'>"_s;
    QTest::addRow("half a quote") << u"<div><b x=a' y='></div>'>"_s;
    QTest::addRow("end tag in a tag without end") << u"<div><i </div>"_s;
    QTest::addRow("end tag in a style sheet") << u"<div><style></style><p></b>"_s;
    QTest::addRow("end tag of another element") << u"<div></b </div>"_s;
    QTest::addRow("end tag with a longer name") << u"<div></divx>"_s;
    QTest::addRow("quoted name") << u"<\"div\">"_s;
    QTest::addRow("blank before the name") << u"< div>"_s;
    QTest::addRow("upper case") << u"<DIV>"_s;
    QTest::addRow("slash in an attribute") << u"<a href=x/y>"_s;
    QTest::addRow("back into an ended element") << u"<div><br></div></br>"_s;
    QTest::addRow("back over a blank") << u"<div><hr></div> </hr>"_s;
    QTest::addRow("end tag of an element that a reference names")
        << u"<&amp;><b></&AMP;><div></b></&amp;>"_s;
    QTest::addRow("name with a numeric reference") << u"<di&#118;>"_s;
    QTest::addRow("end of an element that a paragraph had ended") << u"<p><b><p></b><div><div>"_s;
    QTest::addRow("within a fragment") << u"<b x='<!--StartFragment-->'></b></b><div>"_s;
}

void TestMarkupLimiter::tricksDoNotHideNesting()
{
    QFETCH(QString, unit);
    const QString text = unit.repeated(600) + u'x';
    QVERIFY(MarkupLimiter::isBeyondLimits(text));
    const Shown view(text);
    QVERIFY(isShownPlain(view, text));
}

void TestMarkupLimiter::endedElementsDoNotCount_data()
{
    QTest::addColumn<QString>("unit");
    for (const char* unit : {"<p>",
                             "<li>",
                             "<p><b>x",
                             "<p><b>x</p>",
                             "<b>x</b>",
                             "<b><i>x</b>",
                             "<div/>",
                             "<br>",
                             "<br></br>",
                             "<hr/>",
                             "<dl><dd>x<dd>y</dl>",
                             "<B>x</b >",
                             "<\"b\">x</b>",
                             "<b x='>'>y</b>",
                             "<>",
                             "< >",
                             "</p>",
                             "<-></->",
                             "<R&D></R&D>",
                             "<!-- <b> -->",
                             "x<i\n>y</i\n>"})
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
    const QString simple = u"<table><tr><td>x</table>"_s;
    // The document puts each into the one before.
    QTest::addRow("tables between cells") << u"<table><tr><td>a</td>"_s + simple.repeated(30);
    QTest::addRow("tables between rows") << u"<table>"_s + simple.repeated(30);
    QTest::addRow("tables in a caption") << u"<table><caption>"_s + simple.repeated(30);
    // A hidden table ends the one around it.
    QTest::addRow("hidden table") << u"<table><tr><td>x<title>"_s + simple;
    QTest::addRow("cells without tables")
        << u"<tr><td><table>"_s.repeated(MarkupLimiter::maxTableDepth + 1);
    for (const char* span :
         {"colspan=2000000000", "ROWSPAN = \"99999\"", "colspan='2001'", "rowspan=+2147483647",
          "rowspan=50 colspan=50", "rowspan=2&#48;00", "rowsp&#97;n=9999", "x='' rowspan=9999",
          "rowspan=1 rowspan=9999", "rowspan\n=\n9999", "\"rowspan\"=\"9999\""})
        QTest::addRow("%s", span) << u"<table><tr><td %1>x</table>"_s.arg(
            QString::fromLatin1(span));
    QTest::addRow("hanging cells") << u"<table>"_s + u"<tr><td rowspan=50>x"_s.repeated(50);
    QTest::addRow("named by a reference") << u"<t&#97;ble>"_s + simple;
    QTest::addRow("cells moved by a style") << u"<p style='-qt-paragraph-type:empty'>"_s + simple;
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
    const QString words = u"xxxxxxxx "_s.repeated(3000);
    for (const char* start : {"<span style='font-size:2000px'>", "<p style='line-height:9999px'>",
                              "<p style='line-height:9999%'>", "<p style='line-height:99'>",
                              "<p style='font:italic 2000pt x'>", "<style>p{font-size:2000px}</x>"})
        QTest::addRow("%s words", start) << QString::fromLatin1(start) + words;
    for (const char* unit : {"<p style='margin-top:10000px'>x", "<p style='padding:20000px'>x",
                             "<img height=30000><br>", "<table height=30000><tr><td>x</table>"})
        QTest::addRow("many %s", unit) << QString::fromLatin1(unit).repeated(250);
    QTest::addRow("many wide cells")
        << u"<table cellpadding=9999><tr>"_s + u"<td>x"_s.repeated(1000);
    QTest::addRow("a gradient that is none")
        << u"<b style=\"background:qlineargradient(x1:,y1:,stop: red)\">a</b>"_s;
    QTest::addRow("a gradient in a style sheet")
        << u"<style>b{color:qRadialGradient(cx:,stop: red)}</style><b>a</b>"_s;
    QTest::addRow("many wide elements")
        << u"<style>div{margin:9999px}</style>"_s + u"<div>x</div>"_s.repeated(1000);
}

void TestMarkupLimiter::hugeLengthsArePlainText()
{
    QFETCH(QString, markup);
    const Shown view(markup);
    QVERIFY(isShownPlain(view, markup));
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
        << u"<span style='color:rgb(255,255,255); font-weight:600; font-size:12pt;"
           " line-height:120%'>word word</span> "_s.repeated(300);
    for (const char* start :
         {"<p style=\"font-family:'Univers 55'\">", "<p style=\"font:12px 'Univers 55'\">",
          "<p style='font-size:14'>", "<p style='line-height:1.5'>", "<p style='font-size:1.2em'>",
          "<p style='font-size:48pt;line-height:200%'>", "<p style='font-variant:small-caps 3'>",
          "<td width=info>", "<td width=nano>"})
        QTest::addRow("%s words", start)
            << QString::fromLatin1(start) + u"word word "_s.repeated(3000);
    QTest::addRow("table in cells of a usual width")
        << u"<table width=600 cellpadding=5 border=1>"_s +
               u"<tr><td width=300>word<td width=300>word"_s.repeated(500);
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
    for (const char* unit :
         {"<table><tr><td>", "<div>", "<ul><li>", "<dl><dd>", "<blockquote>", "<b>", "<table>",
          "<tr><td colspan=20000 rowspan=20000>a", "<img src=x.png>", "<style>", "<font size=+9>",
          "<a href=x>", "<div style='float:left'>", "<sub>", "<pre>\t", "<table><tr><td>x",
          "<table><caption>", "<img align=left width=3000>"})
        QTest::addRow("%s", unit) << QString::fromLatin1(unit);
}

void TestMarkupLimiter::hostileTextIsShownPlain()
{
    QFETCH(QString, unit);
    const QString text = unit.repeated(longestArticle / unit.size());
    const Shown view(text);
    QCOMPARE(view.text(), text);
    QVERIFY(isShownPlain(view, text));
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
