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
    void manyFontsAreCut_data();
    void manyFontsAreCut();
    void manyScriptsAreCut();
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
    // Under these no line ends at a blank.
    QTest::newRow("words on one line") << u"<nobr>"_s + filled(u"ab "_s);
    QTest::newRow("words of two directions on one line") << u"<nobr>"_s + filled(u"\u05D0 a "_s);
    QTest::newRow("words on one line by a style")
        << u"<code style=\"white-space:nowrap\">"_s + filled(u"ab "_s);
    QTest::newRow("words on one line by a style sheet")
        << u"<style>p,b,i{white-space:nowrap}</style><b>"_s + filled(u"ab "_s);
    QTest::newRow("words on one line by the second half of a style sheet")
        << u"<style>b{color:red}<!-- -->i{white-space:nowrap}</style><i>"_s + filled(u"ab "_s);
    QTest::newRow("words on one line by a hidden style")
        << u"<code style=\"white&#45;space:nowrap\">"_s + filled(u"ab "_s);
    QTest::newRow("words on one line in a cell") << u"<table><tr><td><nobr>"_s + filled(u"ab "_s);
    QTest::newRow("words on one line with changes of letters")
        << u"<nobr><b>"_s + filled(u"ab <i>c</i> "_s);
    QTest::newRow("no-break spaces by name") << filled(u"\u4E2D&nbsp;"_s);
    QTest::newRow("narrow no-break spaces") << filled(u"a\u202F"_s);
    QTest::newRow("tabs in a preformatted line") << u"<pre>"_s + filled(u"a\t"_s);
    QTest::newRow("tabs by a style") << u"<p style=\"white-space:pre\">"_s + filled(u"a\t"_s);
    QTest::newRow("small capitals")
        << u"<p style=\"font-variant:small-caps\">"_s + filled(u"aB "_s);
    QTest::newRow("spaced letters") << u"<p style=\"letter-spacing:3px\">"_s + filled(u"ab "_s);
    QTest::newRow("two directions") << filled(u"a \u05D0 "_s);
    QTest::newRow("two directions by number") << filled(u"a&#1488; "_s);
    QTest::newRow("two directions in a word") << filled(u"a\u05D0"_s);
    QTest::newRow("two scripts") << filled(u"a\u1100"_s);
    QTest::newRow("digits behind letters from right to left") << filled(u"\u05D0 1 "_s);
    QTest::newRow("turns of direction") << filled(u"a &#8235;"_s);
    QTest::newRow("controls") << filled(u"\x01\x02"_s);
    QTest::newRow("places of objects") << filled(u"\uFFFC "_s);
    QTest::newRow("words in tables in tables")
        << u"<table><tr><td>"_s.repeated(4) + filled(u"ab "_s);
    QTest::newRow("words in a table") << u"<table><tr><td>"_s + filled(u"ab "_s);
    QTest::newRow("rows that lack cells")
        << u"<table>"_s + filled(u"<tr><td colspan=9>a<td>b"_s + u"<tr><td>c<td>d"_s.repeated(8));
    QTest::newRow("words in narrow lines") << u"<ul>"_s.repeated(12) + filled(u"ab "_s);
    QTest::newRow("list entries") << u"<ul>"_s + filled(u"<li>a"_s);
    QTest::newRow("lists") << filled(u"<ul></ul>"_s);
    QTest::newRow("places of links") << filled(u"<a name=x>a</a>"_s);
    QTest::newRow("pictures") << filled(u"<img src=x> a "_s);
    QTest::newRow("many selectors") << u"<style>"_s + u"b,"_s.repeated(500) +
                                           u"b{color:red}</style>"_s + filled(u"<b>a</b> "_s);
    QTest::newRow("many style sheets") << filled(u"<style>b{color:red}</style><b>a</b>"_s);
    QTest::newRow("lines of a style") << u"<p style=\"white-space: pre\">"_s + filled(u"a\n"_s);
}

void ShowingCostTest::damagedMarkupIsCut()
{
    QFETCH(QString, markup);
    const qsizetype shown = ShowingCost::showableMarkup(markup);
    QVERIFY(shown > 0);
    QVERIFY2(shown < markup.size() * 3 / 4, qPrintable(QString::number(shown)));
}

void ShowingCostTest::manyFontsAreCut_data()
{
    QTest::addColumn<QString>("unit"); // with the number of the font as %1
    QTest::newRow("sizes") << u"<span style=\"font-size:%1px\">a</span> "_s;
    QTest::newRow("sizes of a font") << u"<font size=%1>a</font> "_s;
    QTest::newRow("faces") << u"<font face=f%1>a</font> "_s;
    QTest::newRow("families") << u"<b style=\"font-family:f%1\">a</b> "_s;
    QTest::newRow("weights") << u"<b style=\"font-weight:%1\">a</b> "_s;
}

/// Not how often a font is used, but how many there are, costs.
void ShowingCostTest::manyFontsAreCut()
{
    QFETCH(QString, unit);
    constexpr int mostFonts = 32;
    QString several;
    QString many;
    for (int number = 0; number < 300; ++number) {
        several += unit.arg(number % 3);
        many += unit.arg(number);
    }
    QCOMPARE(ShowingCost::showableMarkup(several), several.size());
    const qsizetype shown = ShowingCost::showableMarkup(many);
    QVERIFY(shown > 0);
    QVERIFY2(shown <= unit.arg(100).size() * mostFonts, qPrintable(QString::number(shown)));
}

void ShowingCostTest::manyScriptsAreCut()
{
    const auto words = [](std::initializer_list<char16_t> letters) {
        QString text;
        for (int count = 0; count < 100; ++count) {
            for (const char16_t letter : letters)
                text += QString(4, letter) + u' ';
        }
        return text;
    };
    const QString usual =
        words({u'\u05D0', u'\u0634', u'\u0915', u'\u4E2D'}) + words({u'\u0391', u'\u0411'});
    QCOMPARE(ShowingCost::showableMarkup(usual), usual.size());
    QString all;
    for (char16_t letter = 0x531; letter < 0x1900; letter += 0x10)
        all += QString(40, QChar(letter)) + u' ';
    QVERIFY(ShowingCost::showableMarkup(all) < all.size() / 2);
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
    QTest::newRow("Arabic") << filled(u"\u0634\u0634\u0634\u0634 "_s);
    QTest::newRow("a translation into Hebrew")
        << filled(u"some words, and what they are: \u05D0\u05D0\u05D0\u05D0. "_s);
    QTest::newRow("Hindi") << filled(u"\u0915\u094D\u0937\u093F "_s);
    QTest::newRow("coloured words") << filled(u"some words <b style=\"color:red\">red</b>, "_s);
    QTest::newRow("a list") << u"<ul>"_s +
                                   filled(u"<li>"_s + u"some words of a list "_s.repeated(8));
    QTest::newRow("signs by name") << filled(u"some words &amp; others "_s);
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
    constexpr qint64 allowed = ShowingCost::allowance + size;
    QVERIFY(size / shortestCell * ShowingCost::cellCost <= allowed);
    QVERIFY(size * size / ShowingCost::wordDivisor <= allowed);
    QVERIFY(size * ShowingCost::paragraphCost <= allowed);
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
