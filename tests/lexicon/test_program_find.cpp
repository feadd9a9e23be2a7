// SPDX-License-Identifier: MIT
#include "tests/lexicon/lexiconprogram.h"

#include <QJsonArray>
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
    void initTestCase();
    void findPrintsArticles_data();
    void findPrintsArticles();
    void findReadsWordsFromStandardInput();
    void findPrintsJson();
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

void TestProgramFind::findReadsWordsFromStandardInput()
{
    const ProgramResult result =
        _program.run(words({"find", "small.PDB", "-"}), "ähnlich\n\nto build\n");
    QCOMPARE(result.code, 0);
    QCOMPARE(result.out, QByteArray("ähnlich\nsimilar\n\n"
                                    "to build\nbauen, &bdquo;errichten&ldquo;\n\n"));
    QCOMPARE(_program.run(words({"find", "small.PDB", "-"}), "nothing\n").code, 1);
}

void TestProgramFind::findPrintsJson()
{
    const ProgramResult result =
        _program.run(words({"find", "small.PDB", "--json", "house", "nothing"}));
    QCOMPARE(result.code, 1);
    const QJsonArray found = QJsonDocument::fromJson(result.out).array();
    QCOMPARE(found.size(), 2);
    const QJsonObject house = found[0].toObject();
    QCOMPARE(house[u"word"_s].toString(), u"house"_s);
    const QJsonArray entries = house[u"entries"_s].toArray();
    QCOMPARE(entries.size(), 2);
    QCOMPARE(entries[1].toObject()[u"headword"_s].toString(), u"House"_s);
    QCOMPARE(entries[1].toObject()[u"article"_s].toString(),
             QString::fromUtf8("Repräsentantenhaus"));
    QVERIFY(found[1].toObject()[u"entries"_s].toArray().isEmpty());
    QCOMPARE(_program.run(words({"find", "small.PDB", "--json", "-"})).out, QByteArray("[]\n"));
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

QTEST_GUILESS_MAIN(TestProgramFind)
#include "test_program_find.moc"
