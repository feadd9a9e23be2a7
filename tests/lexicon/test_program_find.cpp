// SPDX-License-Identifier: MIT
#include "tests/lexicon/lexiconprogram.h"

#include <QJsonDocument>
#include <QJsonObject>
#include <QTest>

using namespace Qt::StringLiterals;

using namespace teskel::test;

/// The commands that show words: find and list.
class TestProgramFind : public QObject
{
    Q_OBJECT

private slots:
    void jsonLinesHoldNoLineSeparators_data();
    void jsonLinesHoldNoLineSeparators();
    void initTestCase();
    void findPrintsArticles_data();
    void findPrintsArticles();
    void findKnowsWordsOfAnyScript_data();
    void findKnowsWordsOfAnyScript();
    void findReadsWordsFromStandardInput();
    void findPrintsJsonLines_data();
    void findPrintsJsonLines();
    void findPrintsWhatTheReaderShows();
    void findPrintsAtMostSoManyEntries_data();
    void findPrintsAtMostSoManyEntries();
    void listPrintsHeadwords_data();
    void listPrintsHeadwords();

private:
    LexiconProgram _program;
};

void TestProgramFind::initTestCase()
{
    QVERIFY(_program.buildSmallLexicon());
}

void TestProgramFind::findPrintsArticles_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<int>("code");
    QTest::addColumn<QByteArray>("out");
    QTest::addColumn<QByteArray>("err");
    const QByteArray house = "house\n1. Haus &lt;neut>\n2. Gebäude &lt;neut>\nsee: building\n\n";
    const QByteArray capital = "House\nRepräsentantenhaus\n\n";
    QTest::newRow("one word, both spellings")
        << words({"house"}) << 0 << house + capital << QByteArray();
    QTest::newRow("umlaut, folded")
        << words({"ÄHNLICH"}) << 0 << QByteArray("ähnlich\nsimilar\n\n") << QByteArray();
    QTest::newRow("no prefix match")
        << words({"hous"}) << 1 << QByteArray() << QByteArray("teskel-lexicon: not found: hous\n");
    QTest::newRow("prefix") << words({"--prefix", "ho"}) << 0 << house + capital << QByteArray();
    QTest::newRow("one of two found")
        << words({"xyz", "#1"}) << 1 << QByteArray("#1\nnumber one\n\n")
        << QByteArray("teskel-lexicon: not found: xyz\n");
    QTest::newRow("topic mark") << words({"#1"}) << 0 << QByteArray("#1\nnumber one\n\n")
                                << QByteArray();
    QTest::newRow("backslashes") << words({"C\\C++"}) << 0
                                 << QByteArray("C\\C++\na programming\tlanguage\n\n")
                                 << QByteArray();
    QTest::newRow("digits within a line")
        << words({"seventeen"}) << 0 << QByteArray("seventeen\nam 17. Mai, 1. Akt\n\n")
        << QByteArray();
}

void TestProgramFind::findPrintsArticles()
{
    QFETCH(QStringList, arguments);
    const ProgramResult result = _program.run(words({"find", "small.PDB"}) + arguments);
    QTEST(result.out, "out");
    QTEST(result.err, "err");
    QTEST(result.code, "code");
}

void TestProgramFind::findKnowsWordsOfAnyScript_data()
{
    QTest::addColumn<QStringList>("options");
    QTest::addColumn<QByteArray>("word");
    QTest::addColumn<QByteArray>("out");
    const QByteArray water = "voda\n<b>вода</b>\nwater, 10 №\n\n";
    QTest::newRow("as written") << QStringList() << QByteArray("вода") << water;
    QTest::newRow("in capitals") << QStringList() << QByteArray("ВОДА") << water;
    QTest::newRow("in Latin letters") << QStringList() << QByteArray("Voda") << water;
    const QByteArray beta = "b-Strahlen\n<b>β-Strahlen</b>\nbeta rays\n\n";
    QTest::newRow("letters of two scripts") << QStringList() << QByteArray("β-Strahlen") << beta;
    QTest::newRow("in the plain form")
        << words({"--plain-latin", "--force"}) << QByteArray("β-Strahlen")
        << QByteArray("beta-Strahlen\nbeta rays\n\n");
}

void TestProgramFind::findKnowsWordsOfAnyScript()
{
    QFETCH(QStringList, options);
    QFETCH(QByteArray, word);
    const QByteArray tsv = "вода\twater, 10 №\nβ-Strahlen\tbeta rays\n";
    QCOMPARE(_program.run(words({"build", "-", "-o", "any.PDB", "-q"}) + options, tsv).code, 0);
    const ProgramResult result = _program.run(words({"find", "any.PDB", word.constData()}));
    QTEST(result.out, "out");
    QCOMPARE(result.code, 0);
}

void TestProgramFind::findReadsWordsFromStandardInput()
{
    const ProgramResult result =
        _program.run(words({"find", "small.PDB", "-"}), "ähnlich\n\nto build\n");
    QCOMPARE(result.code, 0);
    QCOMPARE(result.out, QByteArray("ähnlich\nsimilar\n\n"
                                    "to build\nbauen, &bdquo;errichten&ldquo;\n\n"));
    QCOMPARE(_program.run(words({"find", "small.PDB", "-"}), "nothing\n").code, 1);
}

void TestProgramFind::findPrintsJsonLines_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<int>("code");
    QTest::addColumn<QByteArray>("out");
    const QByteArray house =
        R"({"entries":[{"article":"1. Haus &lt;neut>\n2. Gebäude &lt;neut>\nsee: building",)"
        R"("headword":"house"},{"article":"Repräsentantenhaus","headword":"House"}],)"
        R"("word":"house"})"
        "\n";
    QTest::newRow("a line for a word") << words({"house"}) << 0 << house;
    QTest::newRow("a line for a word that is not there")
        << words({"nothing", "house"}) << 1
        << QByteArray(R"({"entries":[],"word":"nothing"})") + '\n' + house;
    QTest::newRow("no word") << words({"-"}) << 0 << QByteArray();
    QTest::newRow("quotes in a word")
        << words({"\"\\"}) << 1 << QByteArray(R"({"entries":[],"word":"\"\\"})") + '\n';
    QTest::newRow("limit") << words({"--limit", "1", "--prefix", "h", "s"}) << 0
                           << house.left(house.indexOf(",{\"article")) +
                                  R"(],"word":"h"})"
                                  "\n"
                                  R"({"entries":[{"article":"am 17. Mai, 1. Akt",)"
                                  R"("headword":"seventeen"}],"word":"s"})"
                                  "\n";
    QTest::newRow("HTML") << words({"--html", "ähnlich"}) << 0
                          << QByteArray(R"({"entries":[{"headword":"ähnlich","html":)"
                                        R"("<p><b>ähnlich</b></p><p>similar"}],"word":"ähnlich"})"
                                        "\n");
}

void TestProgramFind::findPrintsJsonLines()
{
    QFETCH(QStringList, arguments);
    const ProgramResult result = _program.run(words({"find", "small.PDB", "--json"}) + arguments);
    QTEST(result.out, "out");
    QTEST(result.code, "code");
    for (const QByteArray& line : result.out.split('\n'))
        QVERIFY2(line.isEmpty() || QJsonDocument::fromJson(line).isObject(), line.constData());
}

// The reader's rules: digits without a full stop are left out, references are resolved.
void TestProgramFind::findPrintsWhatTheReaderShows()
{
    QVERIFY(_program
                .run(words({"build", "-", "-o", "rich.PDB"}),
                     "year\t1. Jahre\\n&_ede;&_di;&_dm;<i>x</i>\nYear\tJahr\n")
                .code == 0);
    const ProgramResult result = _program.run(words({"find", "rich.PDB", "--html", "year"}));
    QCOMPARE(result.code, 0);
    QCOMPARE(result.out,
             QByteArray("<p><b>year</b></p><p><b><font color=\"#0000FF\">1.</font></b> Jahre"
                        "</p><p>\nд8&lt;<i>x</i>\n\n<p><b>Year</b></p><p>Jahr\n\n"));
}

void TestProgramFind::findPrintsAtMostSoManyEntries_data()
{
    QTest::addColumn<QString>("limit");
    QTest::addColumn<int>("code");
    QTest::addColumn<QByteArray>("out");
    QTest::newRow("none, and found all the same") << u"0"_s << 0 << QByteArray();
    QTest::newRow("one") << u"1"_s << 0 << QByteArray("ähnlich\nsimilar\n\n");
    QTest::newRow("more than there are") << u"9"_s << 0 << QByteArray("ähnlich\nsimilar\n\n");
    QTest::newRow("no number") << u"x"_s << 2 << QByteArray();
}

void TestProgramFind::findPrintsAtMostSoManyEntries()
{
    QFETCH(QString, limit);
    const ProgramResult result =
        _program.run(words({"find", "small.PDB", "--limit"}) + QStringList{limit, u"ähnlich"_s});
    QTEST(result.out, "out");
    QTEST(result.code, "code");
}

void TestProgramFind::listPrintsHeadwords_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<QByteArray>("out");
    QTest::newRow("all") << QStringList()
                         << QByteArray("#1\nC\\C++\nhouse\nHouse\nseventeen\nto build\nähnlich\n");
    QTest::newRow("from a word") << words({"--from", "HOUSE"})
                                 << QByteArray("house\nHouse\nseventeen\nto build\nähnlich\n");
    QTest::newRow("from between two words")
        << words({"--from", "i", "--count", "2"}) << QByteArray("seventeen\nto build\n");
    QTest::newRow("from behind the last") << words({"--from", "öl"}) << QByteArray();
    QTest::newRow("count") << words({"--count", "1"}) << QByteArray("#1\n");
    QTest::newRow("JSON lines") << words({"--json", "--from", "HOUSE", "--count", "2"})
                                << QByteArray("{\"headword\":\"house\"}\n"
                                              "{\"headword\":\"House\"}\n");
    QTest::newRow("no words at all") << words({"--count", "0"}) << QByteArray();
}

void TestProgramFind::listPrintsHeadwords()
{
    QFETCH(QStringList, arguments);
    const ProgramResult result = _program.run(words({"list", "small.PDB"}) + arguments);
    QCOMPARE(result.code, 0);
    QTEST(result.out, "out");
    QCOMPARE(result.err, QByteArray());
}

void TestProgramFind::jsonLinesHoldNoLineSeparators_data()
{
    QTest::addColumn<QString>("separator");
    QTest::addColumn<QByteArray>("escaped");
    QTest::newRow("next line") << u"\u0085"_s << QByteArray("\\u0085");
    QTest::newRow("line separator") << u"\u2028"_s << QByteArray("\\u2028");
    QTest::newRow("paragraph separator") << u"\u2029"_s << QByteArray("\\u2029");
    QTest::newRow("line feed") << u"\n"_s << QByteArray("\\n");
}

void TestProgramFind::jsonLinesHoldNoLineSeparators()
{
    QFETCH(QString, separator);
    QFETCH(QByteArray, escaped);
    const ProgramResult result =
        _program.run({u"find"_s, u"small.PDB"_s, u"--json"_s, u"no"_s + separator + u"where"_s});
    QCOMPARE(result.out, "{\"entries\":[],\"word\":\"no" + escaped + "where\"}\n");
}

QTEST_GUILESS_MAIN(TestProgramFind)
#include "test_program_find.moc"
