// SPDX-License-Identifier: MIT
#include "dictionary/articleformatter.h"

#include <QTest>
#include <QTextDocument>
#include <QTextFragment>

using namespace Qt::StringLiterals;

class TestArticleFormatter : public QObject
{
    Q_OBJECT

private slots:
    void formats_data();
    void formats();
    void senseNumbersAreBoldAndBlue();
    void italicTagsShowInItalics();
    void headwordIsPassedOnAsItStands();
};

void TestArticleFormatter::formats_data()
{
    const QString one = u"<b><font color=\"#0000FF\">1.</font></b>"_s;
    const QString two = u"<b><font color=\"#0000FF\">2.</font></b>"_s;
    const QString nine = u"<b><font color=\"#0000FF\">9.</font></b>"_s;

    QTest::addColumn<QString>("article");
    QTest::addColumn<QString>("expected");

    QTest::newRow("empty article is one open paragraph") << u""_s << u"<p>"_s;
    QTest::newRow("two senses on two lines")
        << u"1. house\n2. home"_s
        << QString("<p>"_L1 + one + " house</p><p>\n"_L1 + two + " home"_L1);
    QTest::newRow("lone digit is dropped") << u"2 cups"_s << u"<p> cups"_s;
    QTest::newRow("digit at the end is dropped") << u"cup 3"_s << u"<p>cup "_s;
    QTest::newRow("full stop further on does not count") << u"7 ."_s << u"<p> ."_s;
    QTest::newRow("zero stays") << u"0"_s << u"<p>0"_s;
    QTest::newRow("zero with a full stop stays") << u"0."_s << u"<p>0."_s;
    QTest::newRow("ten loses its one") << u"10."_s << u"<p>0."_s;
    QTest::newRow("of two digits the one before the full stop counts")
        << u"19. x"_s << QString("<p>"_L1 + nine + " x"_L1);
    QTest::newRow("full stop after a sense number stays")
        << u"1.."_s << QString("<p>"_L1 + one + "."_L1);
    QTest::newRow("tags and entities are passed on")
        << u"<i>a</i> &amp; <b"_s << u"<p><i>a</i> &amp; <b"_s;
    QTest::newRow("line feeds only") << u"\n\n"_s << u"<p></p><p>\n</p><p>\n"_s;
    QTest::newRow("carriage return is no line feed") << u"a\rb"_s << u"<p>a\rb"_s;
    QTest::newRow("Latin-1 letters stay")
        << u"gr\u00FC\u00DFen \u00FF"_s << u"<p>gr\u00FC\u00DFen \u00FF"_s;
    QTest::newRow("superscript one is no digit") << u"\u00B9."_s << u"<p>\u00B9."_s;
    QTest::newRow("beyond Latin-1 becomes NUL")
        << u"a\u0436b"_s << QString(u"<p>a"_s + QChar(0) + u'b');
    QTest::newRow("the first character beyond Latin-1 becomes NUL")
        << u"\u0100"_s << QString(u"<p>"_s + QChar(0));
    QTest::newRow("a digit of another script becomes NUL")
        << u"\u0661."_s << QString(u"<p>"_s + QChar(0) + u'.');
}

void TestArticleFormatter::formats()
{
    QFETCH(QString, article);
    QFETCH(QString, expected);
    QCOMPARE(teskel::ArticleFormatter::format(article), expected);
}

void TestArticleFormatter::senseNumbersAreBoldAndBlue()
{
    QTextDocument document;
    document.setHtml(teskel::ArticleFormatter::format(u"4. home"_s));
    const QTextFragment number = document.lastBlock().begin().fragment();
    QCOMPARE(number.text(), u"4."_s);
    QCOMPARE(number.charFormat().fontWeight(), int(QFont::Bold));
    QCOMPARE(number.charFormat().foreground().color(), QColor(0, 0, 255));
}

void TestArticleFormatter::italicTagsShowInItalics()
{
    QTextDocument document;
    document.setHtml(teskel::ArticleFormatter::format(u"a <i>word</i> b"_s));
    QTextBlock::iterator run = document.lastBlock().begin();
    ++run;
    QCOMPARE(run.fragment().text(), u"word"_s);
    QVERIFY(run.fragment().charFormat().fontItalic());
}

void TestArticleFormatter::headwordIsPassedOnAsItStands()
{
    QCOMPARE(teskel::ArticleFormatter::headword(u"1. a & <i>b</i>"_s),
             u"<p><b>1. a & <i>b</i></b></p>"_s);
}

QTEST_GUILESS_MAIN(TestArticleFormatter)
#include "test_articleformatter.moc"
