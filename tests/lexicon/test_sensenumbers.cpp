// SPDX-License-Identifier: MIT
#include "lexicon/text/sensenumbers.h"

#include <QTest>

namespace sensenumbers = teskel::sensenumbers;
using sensenumbers::LineStart;

class TestSenseNumbers : public QObject
{
    Q_OBJECT

private slots:
    void onlySenseNumbersTurnBlue_data();
    void onlySenseNumbersTurnBlue();
    void protectingTwiceChangesNothing_data();
    void protectingTwiceChangesNothing();
    void protectingKeepsTheText_data();
    void protectingKeepsTheText();
    void onlySenseNumbersStayDigits_data();
    void onlySenseNumbersStayDigits();
    void beginsWithNumber_data();
    void beginsWithNumber();
};

namespace
{

/// The digits that the reader would show in blue: each from 1 to 9 with a full stop behind it.
QByteArray blueDigits(const QByteArray& article)
{
    QByteArray digits;
    for (qsizetype i = 0; i + 1 < article.size(); ++i) {
        if (article[i] >= '1' && article[i] <= '9' && article[i + 1] == '.')
            digits += article[i];
    }
    return digits;
}

QByteArray protectedText(const QByteArray& article, LineStart lineStart)
{
    std::string text = article.toStdString();
    sensenumbers::protect(text, lineStart);
    return QByteArray::fromStdString(text);
}

} // namespace

void TestSenseNumbers::onlySenseNumbersTurnBlue_data()
{
    QTest::addColumn<QByteArray>("article");
    QTest::addColumn<QByteArray>("trusted");
    QTest::addColumn<QByteArray>("sequence");
    const auto row = [](const char* article, const char* trusted, const char* sequence) {
        QTest::addRow("%s", article)
            << QByteArray(article) << QByteArray(trusted) << QByteArray(sequence);
    };
    row("1. house\n2. home", "12", "12");
    row("  1. house\n\t2. home", "12", "12");
    row("17. Lebensjahr", "", "");
    row("im 17. Lebensjahr", "", "");
    row("am 3. Mai", "", "");
    row("1. Klasse", "1", "");
    row("house\n1. Klasse", "1", "");
    row("1. a 2. b", "1", "");
    row("1. a\n3. b", "13", "");
    row("2. a\n3. b", "23", "");
    row("1. a 2.5 kg\n2. b", "12", "12");
    row("1. im 1. Akt\n2. im 2. Akt", "12", "12");
    row("0.5 and 10. and 1.0", "", "");
    row("3.", "3", "");
    row("a\n9.", "9", "");
    row("a 3.", "", "");
    row("", "", "");
    row("<b>1.</b> a<br>2. b 3. c", "12", "");
    row("<font size=\"1.5\">x</font>", "1", "1"); // inside a tag nothing can be inserted
    row("a < 3. b", "", "");
    row("<i>n</i> 1. a\n2. b", "2", "");
}

void TestSenseNumbers::onlySenseNumbersTurnBlue()
{
    QFETCH(QByteArray, article);
    QTEST(blueDigits(protectedText(article, LineStart::Trusted)), "trusted");
    QTEST(blueDigits(protectedText(article, LineStart::Sequence)), "sequence");
}

void TestSenseNumbers::protectingTwiceChangesNothing_data()
{
    onlySenseNumbersTurnBlue_data();
}

void TestSenseNumbers::protectingTwiceChangesNothing()
{
    QFETCH(QByteArray, article);
    for (const LineStart lineStart : {LineStart::Trusted, LineStart::Sequence}) {
        const QByteArray once = protectedText(article, lineStart);
        QCOMPARE(protectedText(once, lineStart), once);
        QCOMPARE(protectedText(once, LineStart::Trusted), once);
    }
}

void TestSenseNumbers::protectingKeepsTheText_data()
{
    onlySenseNumbersTurnBlue_data();
}

void TestSenseNumbers::protectingKeepsTheText()
{
    QFETCH(QByteArray, article);
    for (const LineStart lineStart : {LineStart::Trusted, LineStart::Sequence})
        QCOMPARE(protectedText(article, lineStart).replace("<i></i>", ""), article);
}

void TestSenseNumbers::onlySenseNumbersStayDigits_data()
{
    QTest::addColumn<QByteArray>("article");
    QTest::addColumn<QByteArray>("referred");
    const auto row = [](const QByteArray& article, const QByteArray& referred) {
        QTest::newRow(article.constData()) << article << referred;
    };
    row("1. house\n2. home", "1. house\n2. home");
    row("  1. house\n\t2. home", "  1. house\n\t2. home");
    row("17. Lebensjahr", "&_db;&_dh;. Lebensjahr");
    row("10. a", "&_db;0. a");
    const QByteArray nine = "8. a\n9. b";
    const QByteArray ten = "<b><font color=\"#0000FF\">&_db;0.</font></b>";
    const QByteArray eleven = "<b><font color=\"#0000FF\">&_db;&_db;.</font></b>";
    row(nine + "\n10. c\n  11. d", nine + '\n' + ten + " c\n  " + eleven + " d");
    row(nine + "\n<b><font color=\"#0000FF\">10.</font></b> c\n11. d",
        nine + '\n' + ten + " c\n" + eleven + " d");
    row(nine + "\n11. d", nine + "\n&_db;&_db;. d");
    row(nine + "\n10.5 kg", nine + "\n&_db;0.&_df; kg");
    row(nine + " 10. c", nine + " &_db;0. c");
    row("8. a\n10. c", "8. a\n&_db;0. c");
    row("10 Euro", "&_db;0 Euro");
    row("am 3. Mai 2005", "am &_dd;. Mai &_dc;00&_df;");
    row("1. a 2. b", "1. a &_dc;. b");
    row("1.2. a", "1.&_dc;. a");
    row("3", "&_dd;");
    row("a\n9.", "a\n9.");
    row("", "");
    row("<b>1.</b> a<br>2. b 3. c", "<b>1.</b> a<br>2. b &_dd;. c");
    row("<h1>a</h1>", "<h&_db;>a</h&_db;>");
    row("<font size=\"1.5\">1. x</font>", "<font size=\"&_db;.&_df;\">1. x</font>");
    row("a < 3. b", "a < &_dd;. b");
    row("<i>n</i> 1. a\n2. b\n<i>adj</i> 1. c", "<i>n</i> 1. a\n2. b\n<i>adj</i> 1. c");
    row("<i>Akt</i> 1. a", "<i>Akt</i> &_db;. a");
    row("a <i>n</i> 1. b", "a <i>n</i> &_db;. b");
    row("&_ede;1. a", "&_ede;&_db;. a");
    row("&#9999999999;", "&#&_dj;&_dj;&_dj;&_dj;&_dj;&_dj;&_dj;&_dj;&_dj;&_dj;;");
}

void TestSenseNumbers::onlySenseNumbersStayDigits()
{
    QFETCH(QByteArray, article);
    std::string text = article.toStdString();
    sensenumbers::referDigits(text);
    QTEST(QByteArray::fromStdString(text), "referred");
    sensenumbers::referDigits(text);
    QTEST(QByteArray::fromStdString(text), "referred");
}

void TestSenseNumbers::beginsWithNumber_data()
{
    QTest::addColumn<QByteArray>("article");
    QTest::addColumn<bool>("begins");
    QTest::newRow("number") << QByteArray("1. house") << true;
    QTest::newRow("later number") << QByteArray("4. house") << true;
    QTest::newRow("blanks and tag") << QByteArray(" \n<b>2.</b> house") << true;
    QTest::newRow("two digits") << QByteArray("12. house") << false;
    QTest::newRow("zero") << QByteArray("0. house") << false;
    QTest::newRow("kept apart") << QByteArray("1<i></i>. Klasse") << false;
    QTest::newRow("word") << QByteArray("house 1.") << false;
    QTest::newRow("empty") << QByteArray() << false;
    QTest::newRow("lone digit") << QByteArray("1") << false;
}

void TestSenseNumbers::beginsWithNumber()
{
    QFETCH(QByteArray, article);
    QTEST(sensenumbers::beginsWithNumber(article.toStdString()), "begins");
}

QTEST_APPLESS_MAIN(TestSenseNumbers)
#include "test_sensenumbers.moc"
