// SPDX-License-Identifier: MIT
#include "tests/lexicon/damagedlexicons.h"
#include "tests/lexicon/lexiconprogram.h"

#include <QTest>

using namespace Qt::StringLiterals;

using namespace teskel::test;

/// verify, seen from outside: which checks it makes, and how it tells of them.
class TestProgramVerify : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void verifyTells_data();
    void verifyTells();
    void listedChecksHaveARule();

private:
    LexiconProgram _program;
};

void TestProgramVerify::initTestCase()
{
    QVERIFY(writeFile(_program.path("sound.PDB"), soundBytes()));
    const QByteArray damaged = soundBytes();
    QVERIFY(writeFile(_program.path("damaged.PDB"), withByte(damaged, offsetOf(damaged, 5), 'x')));
}

void TestProgramVerify::verifyTells_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<int>("code");
    QTest::addColumn<QByteArray>("out");
    QTest::newRow("sound") << words({"sound.PDB"}) << 0
                           << QByteArray("sound.PDB: valid, 4 headwords in 2 word records\n");
    const QByteArray finding =
        "unpack: record 5 does not unpack: it does not begin with a whole header";
    QTest::newRow("damaged") << words({"damaged.PDB"}) << 1
                             << QByteArray("damaged.PDB: " + finding + '\n');
    QTest::newRow("both") << words({"damaged.PDB", "sound.PDB"}) << 1
                          << QByteArray("damaged.PDB: " + finding +
                                        "\nsound.PDB: valid, 4 headwords in 2 word records\n");
    QTest::newRow("quick") << words({"--quick", "damaged.PDB"}) << 0
                           << QByteArray("damaged.PDB: valid, 2 word records; not checked: unpack, "
                                         "layout, keys, order\n");
    QTest::newRow("two checks") << words({"--check", "index", "--check", "unpack", "damaged.PDB"})
                                << 1 << QByteArray("damaged.PDB: " + finding + '\n');
    QTest::newRow("a check and what it needs")
        << words({"--check", "records", "damaged.PDB"}) << 0
        << QByteArray("damaged.PDB: valid, 2 word records; not checked: offsets, index, "
                      "description, unpack, layout, keys, order\n");
    QTest::newRow("JSON") << words({"--json", "damaged.PDB", "sound.PDB"}) << 1
                          << QByteArray(
                                 R"({"file":"damaged.PDB","findings":[{"check":"unpack",)"
                                 R"("message":"record 5 does not unpack: it does not begin with a )"
                                 R"(whole header"}],"headwords":2,"notChecked":[],"valid":false,)"
                                 R"("wordRecords":2})"
                                 "\n"
                                 R"({"file":"sound.PDB","findings":[],"headwords":4,)"
                                 R"("notChecked":[],"valid":true,"wordRecords":2})"
                                 "\n");
    QTest::newRow("quick JSON") << words({"--json", "--quick", "sound.PDB"}) << 0
                                << QByteArray(R"({"file":"sound.PDB","findings":[],"notChecked":)"
                                              R"(["unpack","layout","keys","order"],"valid":true,)"
                                              R"("wordRecords":2})"
                                              "\n");
    QTest::newRow("unknown check") << words({"--check", "frob", "sound.PDB"}) << 2 << QByteArray();
    QTest::newRow("quick and a check")
        << words({"--quick", "--check", "order", "sound.PDB"}) << 2 << QByteArray();
}

void TestProgramVerify::verifyTells()
{
    QFETCH(QStringList, arguments);
    const ProgramResult result = _program.run(words({"verify"}) + arguments);
    QTEST(result.out, "out");
    QTEST(result.code, "code");
}

void TestProgramVerify::listedChecksHaveARule()
{
    const ProgramResult result = _program.run(words({"verify", "--list-checks"}));
    QCOMPARE(result.code, 0);
    QCOMPARE(result.err, QByteArray());
    const QList<QByteArray> lines = result.out.split('\n');
    QCOMPARE(lines.size(), 11);
    QCOMPARE(lines.first(), QByteArray("container\tThe header and the record list are complete."));
    for (const QByteArray& line : lines.first(10))
        QVERIFY2(line.count('\t') == 1 && line.endsWith('.'), line.constData());
}

QTEST_GUILESS_MAIN(TestProgramVerify)
#include "test_program_verify.moc"
