// SPDX-License-Identifier: MIT
#include "lexicon/text/plainarticle.h"
#include "lexicon/text/senseruns.h"
#include "lexicon/text/storedarticle.h"

#include <QTest>

using teskel::Latin1Converter;
using teskel::richText;
using teskel::storedArticle;
using teskel::TextSpan;
namespace senseruns = teskel::senseruns;

/// The senses that plain articles number of themselves.
class TestSenseRuns : public QObject
{
    Q_OBJECT

private slots:
    void readsCandidates_data();
    void readsCandidates();
    void sensesBecomeSenseNumbers_data();
    void sensesBecomeSenseNumbers();
    void sensesStayDigitsInTheLexicon();
    void greyPartsAreMarked();
};

void TestSenseRuns::readsCandidates_data()
{
    QTest::addColumn<QByteArray>("line");
    QTest::addColumn<QByteArray>("label");
    QTest::addColumn<uint>("number");
    QTest::addColumn<char>("mark"); // NUL when the line has none
    const auto row = [](const char* line, const char* label, uint number, char mark) {
        QTest::addRow("%s", line) << QByteArray(line) << QByteArray(label) << number << mark;
    };
    row("1. a", "", 1, '.');
    row("12: a", "", 12, ':');
    row("3) a", "", 3, ')');
    row("(4) a", "", 4, '(');
    row("  \t5. a", "", 5, '.');
    row("    n 1: a", "n", 1, ':');
    row("adj 2: a", "adj", 2, ':');
    row("adv 3. a", "adv", 3, '.');
    row("s (6) a", "s", 6, '(');
    row("7.", "", 7, '.');
    row("8.\r", "", 8, '.');
    row("99. a", "", 99, '.');
    row("100. a", "", 0, '\0');
    row("01. a", "", 0, '\0');
    row("n 00: a", "", 0, '\0');
    row("n 0: a", "n", 0, ':');
    row("1.5 kg", "", 0, '\0');
    row("1.Klasse", "", 0, '\0');
    row("(1. a", "", 0, '\0');
    row("(1 a)", "", 0, '\0');
    row("1 a", "", 0, '\0');
    row("x 1: a", "", 0, '\0');
    row("n  1: a", "", 0, '\0');
    row("n. 1: a", "", 0, '\0');
    row("a", "", 0, '\0');
    row("n ", "", 0, '\0');
    row("(", "", 0, '\0');
    row("1", "", 0, '\0');
    row("", "", 0, '\0');
}

void TestSenseRuns::readsCandidates()
{
    QFETCH(QByteArray, line);
    const std::string text = line.toStdString();
    const senseruns::Candidate candidate = senseruns::readCandidate(text);
    QTEST(QByteArray::fromStdString(std::string(candidate.label)), "label");
    QTEST(uint{candidate.number}, "number");
    QTEST(candidate.mark, "mark");
    QCOMPARE(candidate.end > 0, candidate.mark != '\0');
}

void TestSenseRuns::sensesBecomeSenseNumbers_data()
{
    QTest::addColumn<QByteArray>("plain");
    QTest::addColumn<QByteArray>("rich");
    const auto row = [](const char* name, const QByteArray& plain, const QByteArray& rich) {
        QTest::newRow(name) << plain << rich;
    };
    row("a run", "1. house\n2. home", "1. house\n2. home");
    row("a run with other lines", "1. house\nhouses\n 2. home", "1. house\nhouses\n2. home");
    row("other marks", "1: a\n2: b", "1. a\n2. b");
    row("parentheses", "(1) a\n(2) b", "1. a\n2. b");
    row("labels", "n 1: a\n2: b\nv 1: c", "<i>n</i> 1. a\n2. b\n<i>v</i> 1. c");
    row("a label alone is enough", "adj 1: a", "<i>adj</i> 1. a");
    row("a label counts on", "n 1: a\nv 2: b\n3: c", "<i>n</i> 1. a\n<i>v</i> 2. b\n3. c");
    row("two runs", "1. a\n2. b\n1. c\n2. d", "1. a\n2. b\n1. c\n2. d");
    row("one run within another", "1. a\n1) b\n2) c\n2. d", "1. a\n1. b\n2. c\n2. d");
    row("numbers that a nought begins", "01. a\n02. b", "01. a\n02. b");
    row("a single number", "1. Klasse", "&_db;. Klasse");
    row("a single number of another mark", "1) Klasse", "&_db;) Klasse");
    row("an ordinal number", "17. Lebensjahr", "&_db;7. Lebensjahr");
    row("an ordinal number among senses", "1. a\n3. Klasse\n2. b", "1. a\n&_dd;. Klasse\n2. b");
    row("a number that begins no run", "2. a\n3. b", "&_dc;. a\n&_dd;. b");
    row("1 begins anew", "1. Klasse\n1. a\n2. b", "&_db;. Klasse\n1. a\n2. b");
    row("digits within a line", "am 3. b 4", "am 3. b 4");
    row("a decimal number", " 1.5 kg", " &_db;.5 kg");
    row("markup signs", "1. a < b & c\n2. <n>", "1. a &lt; b &amp; c\n2. &lt;n>");
    row("a spelled reference", "&_db; a", "&amp;_db; a");
    row("an empty text", "", "");
    QByteArray plain;
    QByteArray rich;
    for (int i = 1; i <= 11; ++i) {
        const QByteArray number = QByteArray::number(i) + '.';
        plain += number + " a\n";
        rich += (i > 9 ? "<b><font color=\"#0000FF\">" + number + "</font></b>" : number) + " a\n";
    }
    row("beyond nine", plain, rich);
}

void TestSenseRuns::sensesBecomeSenseNumbers()
{
    QFETCH(QByteArray, plain);
    QTEST(QByteArray::fromStdString(richText(plain.toStdString())), "rich");
}

void TestSenseRuns::sensesStayDigitsInTheLexicon()
{
    Latin1Converter converter;
    QCOMPARE(storedArticle(converter, "n 1: a 2\n2: b\nv 1: c\n10. d",
                           Latin1Converter::Text::PlainArticle),
             std::string("<i>n</i> 1. a &_dc;\n2. b\n<i>v</i> 1. c\n&_db;0. d"));
}

void TestSenseRuns::greyPartsAreMarked()
{
    const std::vector<TextSpan> grey = {{0, 3}, {6, 3}};
    QCOMPARE(richText("/a/ b /</ c\n1. d\n2. e", grey),
             std::string("<font color=\"gray\">/a/</font> b <font color=\"gray\">/&lt;/</font> c\n"
                         "1. d\n2. e"));
}

QTEST_APPLESS_MAIN(TestSenseRuns)
#include "test_senseruns.moc"
