// SPDX-License-Identifier: MIT
#include "tests/lexicon/damagedlexicons.h"
#include "tests/lexicon/lexiconprogram.h"

#include <QTest>

using namespace Qt::StringLiterals;

using namespace teskel::test;

/// diff, seen from outside.
class TestProgramDiff : public QObject
{
    Q_OBJECT

private slots:
    void diffTells_data();
    void diffTells();
    void recordsMayBeDividedDifferently();
    void troubleEndsWithThree_data();
    void troubleEndsWithThree();

private:
    bool build(const char* name, const QByteArray& tsv, const QStringList& options = {}) const
    {
        return _program.run(words({"build", "-", "-o", name, "--no-numbers"}) + options, tsv)
                   .code == 0;
    }

    LexiconProgram _program;
};

void TestProgramDiff::diffTells_data()
{
    QTest::addColumn<QByteArray>("before");
    QTest::addColumn<QByteArray>("after");
    QTest::addColumn<QByteArray>("out");
    const QByteArray some = "ant\tx\nbee\ty\ncat\tz\n";
    QTest::newRow("the same") << some << some << QByteArray();
    QTest::newRow("another description alone")
        << some << QByteArray("\tThird edition\n") + some << QByteArray();
    QTest::newRow("added") << some << some + "aa\t1\nbb\t2\nzz\t3\n"
                           << QByteArray("added\taa\nadded\tbb\nadded\tzz\n");
    QTest::newRow("removed") << some << QByteArray("bee\ty\n")
                             << QByteArray("removed\tant\nremoved\tcat\n");
    QTest::newRow("changed") << some << QByteArray("ant\tx\nbee\tX\ncat\tz\n")
                             << QByteArray("changed\tbee\n");
    QTest::newRow("a capital is another headword") << some << QByteArray("Ant\tx\nbee\ty\ncat\tz\n")
                                                   << QByteArray("removed\tant\nadded\tAnt\n");
    QTest::newRow("a capital beside a small letter") << some << some + "Ant\tw\n"
                                                     << QByteArray("added\tAnt\n");
    QTest::newRow("nothing in common") << QByteArray("ant\tx\n") << QByteArray("zoo\tx\n")
                                       << QByteArray("removed\tant\nadded\tzoo\n");
    QTest::newRow("umlaut") << some << some + "ähnlich\t1\n" << QByteArray("added\tähnlich\n");
}

void TestProgramDiff::diffTells()
{
    QFETCH(QByteArray, before);
    QFETCH(QByteArray, after);
    QFETCH(QByteArray, out);
    QVERIFY(build("a.PDB", before) && build("b.PDB", after));
    const ProgramResult result = _program.run(words({"diff", "a.PDB", "b.PDB"}));
    QCOMPARE(result.out, out);
    QCOMPARE(result.err, QByteArray());
    QCOMPARE(result.code, out.isEmpty() ? 0 : 1);
    QByteArray lines;
    for (const QByteArray& line : out.split('\n')) {
        if (!line.isEmpty())
            lines += R"({"change":")" + line.split('\t')[0] + R"(","headword":")" +
                     line.split('\t')[1] + "\"}\n";
    }
    QCOMPARE(_program.run(words({"diff", "a.PDB", "b.PDB", "--json"})).out, lines);
}

void TestProgramDiff::recordsMayBeDividedDifferently()
{
    QByteArray tsv;
    for (int i = 0; i < 2000; ++i)
        tsv += QByteArray::number(i) + "\tarticle\n";
    QVERIFY(build("a.PDB", tsv, words({"--record-size", "256"})));
    QVERIFY(build("b.PDB", tsv + "15x\tnew\n", words({"--method", "4"})));
    const ProgramResult result = _program.run(words({"diff", "a.PDB", "b.PDB"}));
    QCOMPARE(result.out, QByteArray("added\t15x\n"));
    QCOMPARE(result.code, 1);
}

void TestProgramDiff::troubleEndsWithThree_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QByteArray>("err");
    for (const DamagedLexicon& each : damagedLexicons()) {
        if (each.name == "flipped bit in a word record")
            QTest::newRow("damaged record")
                << each.bytes << QByteArray("b.PDB: record 5 cannot be unpacked\n");
        if (each.name == "records out of order")
            QTest::newRow("order") << each.bytes
                                   << QByteArray("b.PDB: its headwords are not in order: \"ant\" "
                                                 "stands behind \"cat\"\n");
        if (each.name == "foreign creator")
            QTest::newRow("no lexicon") << each.bytes << QByteArray("b.PDB is no lexicon\n");
    }
}

void TestProgramDiff::troubleEndsWithThree()
{
    QFETCH(QByteArray, bytes);
    QFETCH(QByteArray, err);
    QVERIFY(build("a.PDB", "zoo\tx\n"));
    QVERIFY(writeFile(_program.path("b.PDB"), bytes));
    const ProgramResult result = _program.run(words({"diff", "a.PDB", "b.PDB"}));
    // The engine may have warned before.
    QVERIFY2(result.err.endsWith("teskel-lexicon: " + err), result.err.constData());
    QCOMPARE(result.code, 3);
    QCOMPARE(_program.run(words({"diff", "a.PDB", "missing.PDB"})).code, 3);
}

QTEST_GUILESS_MAIN(TestProgramDiff)
#include "test_program_diff.moc"
