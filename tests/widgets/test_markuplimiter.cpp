// SPDX-License-Identifier: MIT
// Markup that would stop a naive view: each kind is shown within seconds and leaves its text.
#include "widgets/markuplimiter.h"
#include "widgets/qteskeledit.h"

#include <QElapsedTimer>
#include <QRandomGenerator>
#include <QTest>

using teskel::MarkupLimiter;

namespace
{
/// As long as the longest article.
constexpr qsizetype LongestArticle = 32'767;

/// How deep elements are nested at most; those that cannot nest do not count.
int depthOf(const QString& markup)
{
    int depth = 0;
    int deepest = 0;
    for (qsizetype at = markup.indexOf(u'<'); at >= 0; at = markup.indexOf(u'<', at + 1)) {
        depth += markup.mid(at + 1, 1) == QLatin1String("/") ? -1 : 1;
        deepest = qMax(deepest, depth);
    }
    return deepest;
}

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
} // namespace

class TestMarkupLimiter : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void ordinaryTextIsUnchanged_data();
    void ordinaryTextIsUnchanged();
    void wellFormedTablesAreUnchanged();
    void longWellFormedTextShowsTheSame();
    void nestingIsCut_data();
    void nestingIsCut();
    void tricksDoNotNest_data();
    void tricksDoNotNest();
    void tablesAreCut();
    void spansAreCut();
    void picturesCommentsAndStylesAreLeftOut();
    void paragraphsEndWhatTheyHold();
    void hostileMarkupIsShownInTime_data();
    void hostileMarkupIsShownInTime();
    void manyWidePaddingsAreShownInTime();
    void hugeLengthsInTablesAreDropped();
    void hugeNumbersAreShownInTime_data();
    void hugeNumbersAreShownInTime();
    void randomMarkupDoesNotCrash();
};

void TestMarkupLimiter::ordinaryTextIsUnchanged_data()
{
    QTest::addColumn<QString>("text");
    QTest::addRow("empty") << QString();
    QTest::addRow("article") << QStringLiteral("<p><b>house</b></p><p>"
                                               "<b><font color=\"#0000FF\">1.</font></b> Haus</p>");
    QTest::addRow("sloppy") << QStringLiteral("a < b & c <i>unclosed <b>x</i>");
    QTest::addRow("deep but short") << QStringLiteral("<div>").repeated(100);
}

void TestMarkupLimiter::ordinaryTextIsUnchanged()
{
    QFETCH(QString, text);
    QCOMPARE(MarkupLimiter::limited(text), text);
}

void TestMarkupLimiter::wellFormedTablesAreUnchanged()
{
    const QString table = QStringLiteral("<table border=\"1\"><tr><td colspan=2>a &amp; b<td>c"
                                         "<tr><td><b>d</b></table>");
    QCOMPARE(MarkupLimiter::limited(table), table);
}

void TestMarkupLimiter::longWellFormedTextShowsTheSame()
{
    const QString line = QStringLiteral("<p><b><font color=\"#0000FF\">1.</font></b> <i>word</i> "
                                        "&auml; R&amp;D<br>more</p>\n");
    const QString text = line.repeated(200);
    QCOMPARE(MarkupLimiter::limited(text), text);
}

void TestMarkupLimiter::nestingIsCut_data()
{
    QTest::addColumn<QString>("tag");
    for (const char* tag :
         {"div", "b", "ul", "blockquote", "font", "span", "unknown", "body", "x1"})
        QTest::addRow("%s", tag) << QString::fromLatin1(tag);
}

void TestMarkupLimiter::nestingIsCut()
{
    QFETCH(QString, tag);
    const QString open = u'<' + tag + u'>';
    const QString limited = MarkupLimiter::limited(open.repeated(1000) + u'x');
    QCOMPARE(limited.count(open), MarkupLimiter::MaxDepth);
    QVERIFY(limited.endsWith(u'x'));
}

void TestMarkupLimiter::tricksDoNotNest_data()
{
    QTest::addColumn<QString>("unit");
    QTest::addRow("end tag in a comment") << QStringLiteral("<div><!-- </div> -->");
    QTest::addRow("end tag in a declaration") << QStringLiteral("<div><! </div>");
    QTest::addRow("end tag in an attribute") << QStringLiteral("<div><b title=\"</div>\">");
    QTest::addRow("quoted end of the tag") << QStringLiteral("<div><b title=\"></div>\">");
    QTest::addRow("half a quote") << QStringLiteral("<div><b x=a' y='></div>'>");
    QTest::addRow("end tag in a style sheet") << QStringLiteral("<div><style></div></style>");
    QTest::addRow("end tag in a title") << QStringLiteral("<div><title></div></title>");
    QTest::addRow("end tag of another element") << QStringLiteral("<div></b </div>");
    QTest::addRow("blank before the name") << QStringLiteral("< div>");
    QTest::addRow("upper case") << QStringLiteral("<DIV>");
    QTest::addRow("end outside of the table")
        << QStringLiteral("<div><table><tr><td></div></table>");
}

void TestMarkupLimiter::tricksDoNotNest()
{
    QFETCH(QString, unit);
    const QString limited = MarkupLimiter::limited(unit.repeated(600) + u'x');
    const int depth = depthOf(limited);
    // Cells need no end tag, so the simple count sees them as nested.
    const bool hasCells = unit.contains(QLatin1String("<td>"));
    QVERIFY2(hasCells || depth <= MarkupLimiter::MaxDepth, qPrintable(limited.left(400)));
    QElapsedTimer clock;
    clock.start();
    QTeskelEdit edit;
    edit.resize(320, 240);
    edit.show();
    edit.setText(unit.repeated(600) + u'x');
    edit.grab();
    QVERIFY2(clock.elapsed() < 10'000, qPrintable(QString::number(clock.elapsed())));
}

void TestMarkupLimiter::tablesAreCut()
{
    const QString cell = QStringLiteral("<table><tr><td>");
    const QString limited = MarkupLimiter::limited(cell.repeated(100) + u'x');
    QCOMPARE(limited.count(QLatin1String("<table>")), MarkupLimiter::MaxTableDepth);
    const QString wide = MarkupLimiter::limited(QStringLiteral("<table><tr>") +
                                                QStringLiteral("<td>x").repeated(100));
    QCOMPARE(wide.count(QLatin1String("<td>")), MarkupLimiter::MaxColumns);
    QCOMPARE(wide.count(u'x'), 100);
    const QString tall = MarkupLimiter::limited(QStringLiteral("<table>") +
                                                QStringLiteral("<tr><td>x").repeated(1000));
    QVERIFY(tall.count(QLatin1String("<tr>")) <= MarkupLimiter::MaxRows);
    QCOMPARE(tall.count(u'x'), 1000);
    QCOMPARE(MarkupLimiter::limited(QStringLiteral("<td>a</td> table")), QStringLiteral("a table"));
}

void TestMarkupLimiter::spansAreCut()
{
    for (const char* span : {"colspan=2000000000", "ROWSPAN = \"99999\"", "colspan='17'",
                             "rowspan=99999999999999999999"}) {
        const QString markup =
            QStringLiteral("<table><tr><td %1>x</table>").arg(QString::fromLatin1(span));
        QCOMPARE(MarkupLimiter::limited(markup), QStringLiteral("<table><tr><td>x</table>"));
    }
}

void TestMarkupLimiter::picturesCommentsAndStylesAreLeftOut()
{
    const auto padded = [](const char* markup) {
        return MarkupLimiter::limited(QString::fromLatin1(markup) + QStringLiteral("<img>"));
    };
    QCOMPARE(padded("a<img src=x>b"), QStringLiteral("ab"));
    QCOMPARE(padded("a<!-- <b> -->b"), QStringLiteral("ab"));
    QCOMPARE(padded("a<!DOCTYPE html>b"), QStringLiteral("ab"));
    QCOMPARE(padded("a<style>b{}</style>c"), QStringLiteral("ac"));
    QCOMPARE(padded("a<!-- never ends"), QStringLiteral("a"));
    QCOMPARE(padded("a<style>never ends"), QStringLiteral("a"));
    QCOMPARE(padded("a<b"), QStringLiteral("a<b>"));
    QCOMPARE(padded("a&b &amp; &#65; &&"), QStringLiteral("a&amp;b &amp; &#65; &amp;&amp;"));
}

void TestMarkupLimiter::paragraphsEndWhatTheyHold()
{
    const QString text = QStringLiteral("<p><b>x</p>").repeated(100) + QStringLiteral("<img>");
    const QString limited = MarkupLimiter::limited(text);
    QCOMPARE(limited.count(QLatin1String("<b>")), 100);
    QCOMPARE(limited.count(QLatin1String("</b>")), 100);
}

void TestMarkupLimiter::hostileMarkupIsShownInTime_data()
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
                             "<!--",
                             "<",
                             "&#",
                             "&",
                             "<style>",
                             "<p>",
                             "<li>",
                             "<td>",
                             "</p>",
                             "</table>",
                             "<font size=+9>",
                             "<hr>",
                             "<a href=x>",
                             "<div style='float:left'>",
                             "<p style='margin:99999999px'>",
                             "<sub>",
                             "<pre>\t"})
        QTest::addRow("%s", unit) << QString::fromLatin1(unit);
}

void TestMarkupLimiter::hostileMarkupIsShownInTime()
{
    QFETCH(QString, unit);
    const QString text = unit.repeated(LongestArticle / unit.size());
    QElapsedTimer clock;
    clock.start();
    QCOMPARE(Shown(text).text(), text);
    // Unlimited, the worst of these run for minutes; a loaded machine needs room.
    QVERIFY2(clock.elapsed() < 20'000, qPrintable(QString::number(clock.elapsed())));
}

void TestMarkupLimiter::manyWidePaddingsAreShownInTime()
{
    const QString cells = QStringLiteral("<tr><td>a</td><td>b</td></tr>").repeated(200);
    QElapsedTimer clock;
    clock.start();
    const Shown edit(QStringLiteral("<table cellpadding=9999 cellspacing=9999>") + cells);
    QVERIFY(edit.toPlainText().contains(u'b'));
    QVERIFY2(clock.elapsed() < 20'000, qPrintable(QString::number(clock.elapsed())));
}

void TestMarkupLimiter::hugeLengthsInTablesAreDropped()
{
    const QString table = QStringLiteral("<table width=9999 bgcolor=#00001e>");
    QVERIFY(MarkupLimiter::limited(table).startsWith(table));
    QVERIFY(MarkupLimiter::limited(QStringLiteral("<table cellpadding=10000 width=3>"))
                .startsWith(QLatin1String("<table>")));
}

void TestMarkupLimiter::hugeNumbersAreShownInTime_data()
{
    QTest::addColumn<QString>("markup");
    for (const char* markup : {
             "<font size=2147483647>word</font>",
             "<font size=+2147483647>word</font>",
             "<font size=-2147483648>word</font>",
             "<span style='font-size:2147483647px'>word</span>",
             "<span style='font-size:2147483647pt'>word</span>",
             "<span style='font-size:999999pt'>word</span>",
             "<span style='font-size:1e300px'>word</span>",
             "<span style='font-size:99999px'>word</span>",
             "<span style='letter-spacing:2147483647px'>word</span>",
             "<span style='word-spacing:2147483647px'>word word</span>",
             "<p style='line-height:2147483647px'>word</p>",
             "<p style='line-height:2147483647%'>word</p>",
             "<p style='text-indent:2147483647px'>word</p>",
             "<p style='text-indent:-2147483647px'>word</p>",
             "<p style='margin-left:2147483647px'>word</p>",
             "<p style='-qt-block-indent:2147483647'>word</p>",
             "<div style='padding:2147483647px'>word</div>",
             "<table width=2147483647><tr><td>word</td></tr></table>",
             "<table width='2147483647%'><tr><td>word</td></tr></table>",
             "<table height=2147483647><tr><td>word</td></tr></table>",
             "<table border=2147483647><tr><td>word</td></tr></table>",
             "<table border=99999><tr><td>word</td></tr></table>",
             "<table border=1 style='border-style:dotted' "
             "width=16000000><tr><td>word</td></tr></table>",
             "<table border=9999999 style='border-style:dotted'><tr><td>word</td></tr></table>",
             "<table cellpadding=2147483647><tr><td>word</td></tr></table>",
             "<table cellspacing=2147483647><tr><td>word</td></tr></table>",
             "<table><tr><td width=2147483647>word</td></tr></table>",
             "<table><tr><td style='padding:2147483647px'>word</td></tr></table>",
             "<table cellpadding=1e9><tr><td>word</td></tr></table>",
             "<table cellpadding=9e+9><tr><td>word</td></tr></table>",
             "<table cellspacing=inf><tr><td>word</td></tr></table>",
             "<table cellpadding=9999 cellspacing=9999><tr><td>word</td></tr></table>",
             "<table><tr><td style='padding:999999em'>word</td></tr></table>",
             "<table><tr style='padding:2147483647px'><td>word</td></tr></table>",
             "word<hr width=2147483647>",
             "word<hr width='2147483647%'>",
             "<ol start=2147483647><li>word</li><li>word</li></ol>",
             "<ol type=a start=2147483647><li>word</li></ol>",
             "<ol type=i start=2147483647><li>word</li></ol>",
             "<ul style='-qt-list-indent:2147483647'><li>word</li></ul>",
         })
        QTest::addRow("%s", markup) << QString::fromLatin1(markup);
}

void TestMarkupLimiter::hugeNumbersAreShownInTime()
{
    QFETCH(QString, markup);
    QElapsedTimer clock;
    clock.start();
    const Shown edit(markup);
    QVERIFY(edit.toPlainText().contains(QLatin1String("word")));
    QVERIFY2(clock.elapsed() < 5'000, qPrintable(QString::number(clock.elapsed())));
}

void TestMarkupLimiter::randomMarkupDoesNotCrash()
{
    static const char* const parts[] = {"<table>",
                                        "<tr>",
                                        "<td>",
                                        "</td>",
                                        "</table>",
                                        "<b>",
                                        "</b>",
                                        "<p>",
                                        "</p>",
                                        "<",
                                        ">",
                                        "\"",
                                        "'",
                                        "&",
                                        "&amp;",
                                        "<ul>",
                                        "<li>",
                                        "</ul>",
                                        "<!--",
                                        "-->",
                                        "<img>",
                                        "x",
                                        " ",
                                        "=",
                                        "/",
                                        "<td colspan=3>",
                                        "<style>",
                                        "</style>",
                                        "<th rowspan=2>",
                                        "\n",
                                        "<font color='#0000FF'>"};
    QRandomGenerator random(7);
    QTeskelEdit edit;
    edit.resize(200, 200);
    edit.show();
    for (int round = 0; round < 200; ++round) {
        QString text;
        for (int part = 0; part < 60; ++part)
            text += QString::fromLatin1(parts[random.bounded(int(std::size(parts)))]);
        edit.setText(text);
        edit.grab();
        QCOMPARE(edit.text(), text);
    }
}

QTEST_MAIN(TestMarkupLimiter)
#include "test_markuplimiter.moc"
