// SPDX-License-Identifier: MIT
#include "widgets/article/showingcost.h"
#include "widgets/article/viewtext.h"

#include <QTest>

using namespace Qt::StringLiterals;

using teskel::ShowingCost;
using teskel::ViewText;

/// What of a text can be shown before it costs too much.
class ShowingCostTest : public QObject
{
    Q_OBJECT

private slots:
    void damagedMarkupIsCut_data();
    void damagedMarkupIsCut();
    void goodMarkupIsWhole_data();
    void goodMarkupIsWhole();
    void plainTextIsCut_data();
    void plainTextIsCut();
    void shortTextNeedsNoLook();
    void nothingIsCutInTwo_data();
    void nothingIsCutInTwo();
    void markupBeyondTheLimitsIsCutAsPlainText();
    void whatIsLackingIsTold_data();
    void whatIsLackingIsTold();
};

namespace
{

/// About so many characters as a large article has.
constexpr qsizetype large = 29'000;

QString filled(const QString& part)
{
    return part.repeated(large / part.size());
}

} // namespace

void ShowingCostTest::damagedMarkupIsCut_data()
{
    QTest::addColumn<QString>("markup");
    QTest::newRow("one unbroken word") << QString(large, u'a');
    QTest::newRow("one unbroken word in bold letters")
        << u"<b>"_s + QString(large, u'a') + u"</b>"_s;
    QTest::newRow("one word with changes of letters") << filled(QString(300, u'a') + u"<i></i>"_s);
    QTest::newRow("no-break spaces") << QString(large, u'\u00A0');
    QTest::newRow("a few very long words") << filled(QString(2'000, u'a') + u' ');
    QTest::newRow("unknown entities without blanks") << u"&foobar;"_s.repeated(3'600);
    QTest::newRow("paragraphs") << u"</p><p>\n"_s.repeated(large);
    QTest::newRow("a paragraph a letter") << filled(u"<p>a</p>"_s);
    QTest::newRow("lines") << filled(u"<br>"_s);
    QTest::newRow("rulers") << filled(u"<hr>"_s);
    QTest::newRow("sense numbers")
        << u"<b><font color=\"#0000FF\">1.</font></b>"_s.repeated(large / 2);
    QTest::newRow("changes of letters") << filled(u"<b>a</b>b"_s);
    QTest::newRow("table rows") << u"<table>"_s + filled(u"<tr><td>a"_s);
    QTest::newRow("preformatted lines") << u"<pre>"_s + filled(u"a\n"_s);
    QTest::newRow("lines of a style") << u"<p style=\"white-space: pre\">"_s + filled(u"a\n"_s);
}

void ShowingCostTest::damagedMarkupIsCut()
{
    QFETCH(QString, markup);
    const qsizetype shown = ShowingCost::showableMarkup(markup);
    QVERIFY(shown > 0);
    QVERIFY2(shown < markup.size() * 3 / 4, qPrintable(QString::number(shown)));
}

void ShowingCostTest::goodMarkupIsWhole_data()
{
    QTest::addColumn<QString>("markup");
    QTest::newRow("nothing") << QString();
    QTest::newRow("words") << filled(u"word "_s);
    QTest::newRow("words of two records") << filled(u"word "_s).repeated(2);
    QTest::newRow("lines of words") << filled(u"</p><p>\nsome words in a line"_s);
    QTest::newRow("a list of words") << filled(u"</p><p>\nunfriendliness"_s);
    QTest::newRow("senses") << filled(
        u"</p><p>\n<b><font color=\"#0000FF\">1.</font></b> some words of a line"_s);
    QTest::newRow("examples in italics") << filled(u"a word in <i>italics</i>, "_s);
    QTest::newRow("long words") << filled(QString(150, u'a') + u' ');
    QTest::newRow("a formula") << u"words "_s + QString(1'000, u'C') + u" words"_s;
    QTest::newRow("dashes between letters") << filled(u"a-"_s);
    QTest::newRow("Chinese") << QString(large, u'\u4E2D');
    QTest::newRow("a table of forms")
        << u"<table>"_s +
               u"<tr><td>am</td><td>are</td><td>is</td><td>was</td></tr>"_s.repeated(60) +
               u"</table>"_s;
    QTest::newRow("preformatted words") << u"<pre>"_s + filled(u"some words in a line\n"_s);
}

void ShowingCostTest::goodMarkupIsWhole()
{
    QFETCH(QString, markup);
    QCOMPARE(ShowingCost::showableMarkup(markup), markup.size());
}

void ShowingCostTest::plainTextIsCut_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<bool>("isWhole");
    QTest::newRow("words") << filled(u"word "_s) << true;
    QTest::newRow("lines of words") << filled(u"some words in a line\n"_s) << true;
    QTest::newRow("one unbroken word") << QString(large, u'a') << false;
    QTest::newRow("line feeds") << QString(large, u'\n') << false;
    QTest::newRow("tags as they stand") << filled(u"<b>"_s) << false;
}

void ShowingCostTest::plainTextIsCut()
{
    QFETCH(QString, text);
    QFETCH(bool, isWhole);
    const qsizetype shown = ShowingCost::showableText(text);
    QCOMPARE(shown == text.size(), isWhole);
    QVERIFY(shown > 0);
}

/// Not even of the dearest things in few characters: table cells, words, line feeds.
void ShowingCostTest::shortTextNeedsNoLook()
{
    constexpr qint64 shortestCell = 4; // "<td>"
    constexpr qint64 size = ShowingCost::alwaysShown;
    QVERIFY(size / shortestCell * ShowingCost::cellCost <= ShowingCost::allowance);
    QVERIFY(size * size / ShowingCost::wordDivisor <= ShowingCost::allowance);
    QVERIFY(size * ShowingCost::paragraphCost <= ShowingCost::allowance);
}

void ShowingCostTest::nothingIsCutInTwo_data()
{
    QTest::addColumn<QString>("unit");
    QTest::newRow("letters outside of the basic plane") << u"\U0001D400"_s;
    QTest::newRow("references") << u"&alpha;"_s;
    QTest::newRow("tags") << u"<b>a</b>"_s;
}

/// Whatever stands in front of it.
void ShowingCostTest::nothingIsCutInTwo()
{
    QFETCH(QString, unit);
    for (qsizetype head = 0; head < 40; ++head) {
        const QString front(head, u'x');
        const QString markup = front + filled(unit);
        const qsizetype shown = ShowingCost::showableMarkup(markup);
        QVERIFY(shown < markup.size());
        const qsizetype inUnit = (shown - head) % unit.size();
        const bool isBetweenTags = unit.startsWith(u'<') && (inUnit == 3 || inUnit == 4);
        QVERIFY2(inUnit == 0 || isBetweenTags, qPrintable(QString::number(inUnit)));
    }
}

void ShowingCostTest::markupBeyondTheLimitsIsCutAsPlainText()
{
    const QString deep = filled(u"<div>"_s);
    const ViewText shown = ViewText::of(deep, Qt::RichText);
    QVERIFY(!shown.isRich);
    QVERIFY(deep.startsWith(shown.text));
    QVERIFY(shown.percentLacking > 0);
}

void ShowingCostTest::whatIsLackingIsTold_data()
{
    QTest::addColumn<QString>("source");
    QTest::addColumn<Qt::TextFormat>("format");
    QTest::addColumn<bool>("isCut");
    QTest::newRow("good markup") << u"<p>a"_s << Qt::RichText << false;
    QTest::newRow("good text") << u"a"_s << Qt::PlainText << false;
    QTest::newRow("damaged markup") << QString(large, u'a') << Qt::RichText << true;
    QTest::newRow("damaged text") << QString(large, u'a') << Qt::PlainText << true;
    QTest::newRow("ends in a word that is a little too long")
        << QString(2'450, u'a') << Qt::RichText << true;
}

void ShowingCostTest::whatIsLackingIsTold()
{
    QFETCH(QString, source);
    QFETCH(Qt::TextFormat, format);
    QFETCH(bool, isCut);
    const ViewText shown = ViewText::of(source, format);
    QCOMPARE(shown.text.size() < source.size(), isCut);
    QCOMPARE(shown.percentLacking > 0, isCut);
    const auto lacking = static_cast<double>(source.size() - shown.text.size());
    const double percent = lacking * 100 / static_cast<double>(source.size());
    QVERIFY(qAbs(percent - shown.percentLacking) <= 1);
}

QTEST_GUILESS_MAIN(ShowingCostTest)
#include "test_showingcost.moc"
