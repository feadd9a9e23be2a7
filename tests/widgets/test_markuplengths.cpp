// SPDX-License-Identifier: MIT
// Where the limits of the article view are, to the pixel and to the character.
#include "widgets/article/markuplimiter.h"

#include <QTest>

using namespace Qt::StringLiterals;

using teskel::MarkupLimiter;

/// Lengths, letters, lines and references of a text at a limit and just beyond.
class TestMarkupLengths : public QObject
{
    Q_OBJECT

private slots:
    void limitsAreDocumented();
    void limits_data();
    void limits();
    void referencesInNames_data();
    void referencesInNames();
    void fragments_data();
    void fragments();
};

void TestMarkupLengths::limitsAreDocumented()
{
    QCOMPARE(MarkupLimiter::maxDepth, 256);
    QCOMPARE(MarkupLimiter::maxTableDepth, 4);
    QCOMPARE(MarkupLimiter::maxCells, 2000);
    QCOMPARE(MarkupLimiter::maxPictures, 256);
    QCOMPARE(MarkupLimiter::maxStyleSheet, 65'536);
    QCOMPARE(MarkupLimiter::maxStyleWork, 10'000'000);
    QCOMPARE(MarkupLimiter::maxExtent, 4'000'000.0);
}

void TestMarkupLengths::limits_data()
{
    QTest::addColumn<QString>("atLimit");
    QTest::addColumn<QString>("beyond");
    const auto row = [](const char* name, const QString& atLimit, const QString& beyond) {
        QTest::addRow("%s", name) << atLimit << beyond;
    };
    const auto letters = [](int count) { return QString(count, u'x'); };
    // Each length is there on two sides.
    row("a width", u"<img width=2000000>"_s, u"<img width=2000001>"_s);
    row("a height", u"<img height=2000000>"_s, u"<img height=2000001>"_s);
    row("two lengths", u"<img width=1000000 height=1000000>"_s,
        u"<img width=1000000 height=1000001>"_s);
    row("a fraction", u"<img width=1999999.5 height=0.5>"_s, u"<img width=1999999.5 height=0.6>"_s);
    row("a full stop", u"<img width='1999999. 1'>"_s, u"<img width='1999999. 2'>"_s);
    row("nine digits", u"<img width=001999999>"_s, u"<img width=0001999999>"_s);
    row("a unit and an exponent", u"<img width=9px>"_s, u"<img width=9E1>"_s);
    row("a style", u"<p style='margin:2000000px'>"_s, u"<p style='margin:2000001px'>"_s);
    row("styles", u"<p style='margin:1px 1999999px'>"_s, u"<p style='margin:2px;top:1999999px'>"_s);
    row("two styles", u"<p style='margin:1000000px'><p style='margin:1000000px'>"_s,
        u"<p style='margin:1000000px'><p style='margin:1000001px'>"_s);
    row("heights of letters", u"<p style='margin:20000em'>"_s, u"<p style='margin:20001em'>"_s);
    row("heights of small letters", u"<p style='margin:20000EX'>"_s,
        u"<p style='margin:20001EX'>"_s);
    row("two heights of letters", u"<p style='margin:9999em'><p style='margin:10001em'>"_s,
        u"<p style='margin:10000em'><p style='margin:10001em'>"_s);

    // Of a table of nine cells, and once for what is outside of them.
    for (const char* const name : {"border", "cellpadding", "cellspacing"}) {
        const QString cells = u"<table %1=%2><tr>"_s + u"<td>x"_s.repeated(9);
        row(name, cells.arg(QLatin1StringView(name)).arg(200'000),
            cells.arg(QLatin1StringView(name)).arg(200'001));
    }
    // Of the text itself, the style sheet and so many lines.
    const QString sheet = u"<style>div{margin:500px}</style>"_s;
    row("a style sheet", sheet + u"<br>"_s.repeated(3998), sheet + u"<br>"_s.repeated(3999));
    const QString letterSheet = u"<style>div{margin:5em}</style>"_s;
    row("a style sheet in heights of letters", letterSheet + u"<br>"_s.repeated(3998),
        letterSheet + u"<br>"_s.repeated(3999));

    // A line of large letters is twice as high as they are, and each letter may have its own.
    row("usual letters", u"<p style='font-size:60px'>"_s + letters(40'000),
        u"<p style='font-size:61px'>"_s + letters(40'000));
    row("letters of 61", u"<p style='font-size:61pt'>"_s + letters(32'786),
        u"<p style='font-size:61pt'>"_s + letters(32'787));
    row("the largest letters", u"<p style='font:9px 61px 8px'>"_s + letters(32'786),
        u"<p style='font:9px 61px 8px'>"_s + letters(32'787));
    row("heights of large letters", u"<p style='font-size:100px;margin:9990em'>"_s + letters(20),
        u"<p style='font-size:100px;margin:9990em'>"_s + letters(21));
    row("a name that hides a property", u"<p style='font-x:99999px'>"_s + letters(99),
        u"<p style='font-x/y:99999px'>"_s + letters(99));
    row("usual lines", u"<p style='line-height:10'>"_s + letters(40'000),
        u"<p style='line-height:11'>"_s + letters(40'000));
    row("lines of eleven", u"<p style='line-height:11'>"_s + letters(3636),
        u"<p style='line-height:11'>"_s + letters(3637));
    row("lines in percent", u"<p style='line-height:1100%'>"_s + letters(3636),
        u"<p style='line-height:1100%'>"_s + letters(3637));
    row("the highest lines",
        u"<p style='line-height:9;line-height:11;line-height:8'>"_s + letters(3636),
        u"<p style='line-height:9;line-height:11;line-height:8'>"_s + letters(3637));
    row("lines in pixels", u"<p style='line-height:61px'>"_s + letters(32'786),
        u"<p style='line-height:61px'>"_s + letters(32'787));
    row("what is no length", u"<p style='color:9999999px;-qt-x:9999999px;font-weight:9999999px'>"_s,
        u"<p style='colour:9999999px'>"_s);
}

void TestMarkupLengths::limits()
{
    QFETCH(QString, atLimit);
    QFETCH(QString, beyond);
    QVERIFY(!MarkupLimiter::isBeyondLimits(atLimit));
    QVERIFY(MarkupLimiter::isBeyondLimits(beyond));
}

void TestMarkupLengths::referencesInNames_data()
{
    QTest::addColumn<QString>("reference");
    QTest::addColumn<bool>("beyond");
    const auto row = [](const char* reference, bool beyond) {
        QTest::addRow("%s", reference) << QString::fromLatin1(reference) << beyond;
    };
    row("&#66;", true);
    row("&#x42;", true);
    row("&#X42;", true);
    row("&x42;", false);
    row("&#g;", false);
    // The last character of ASCII, and the first beyond.
    row("&#127;", true);
    row("&#128;", false);
    row("&#x7F;", true);
    row("&#x80;", false);
    // The sign of Kelvin, which is a "k" in lower case.
    row("&#8489;", false);
    row("&#8490;", true);
    row("&#8491;", false);
    // The last character there is, and the first that is none.
    row("&#1114111;", false);
    row("&#1114112;", true);
    // The longest reference that is read as one.
    row("&#0000066;", true);
    row("&#00000066;", false);
    row("&x&#66;", true);
    row("&#66", false);
}

void TestMarkupLengths::referencesInNames()
{
    QFETCH(QString, reference);
    QFETCH(bool, beyond);
    QCOMPARE(MarkupLimiter::isBeyondLimits(u"<a%1>x"_s.arg(reference)), beyond);
    QCOMPARE(MarkupLimiter::isBeyondLimits(u"<img a%1=1>"_s.arg(reference)), beyond);
    QCOMPARE(MarkupLimiter::isBeyondLimits(u"<img width='%1'>"_s.arg(reference)), beyond);
    QCOMPARE(MarkupLimiter::isBeyondLimits(u"<p style='top:%1'>"_s.arg(reference)), beyond);
}

void TestMarkupLengths::fragments_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<bool>("beyond");
    const QString deep = u"<div>"_s.repeated(257);
    const QString begin = u"<!--StartFragment-->"_s;
    const QString end = u"<!--EndFragment-->"_s;
    QTest::addRow("before") << deep + begin + u"x"_s + end << false;
    QTest::addRow("within") << begin + deep + end << true;
    QTest::addRow("behind") << begin + u"x"_s + end + deep << false;
    QTest::addRow("without an end") << begin + deep << true;
    QTest::addRow("with its end before it") << end + begin + deep << true;
    QTest::addRow("without a beginning") << deep + end << true;
}

void TestMarkupLengths::fragments()
{
    QFETCH(QString, text);
    QFETCH(bool, beyond);
    QCOMPARE(MarkupLimiter::isBeyondLimits(text), beyond);
}

QTEST_GUILESS_MAIN(TestMarkupLengths)
#include "test_markuplengths.moc"
