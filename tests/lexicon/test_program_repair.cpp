// SPDX-License-Identifier: MIT
#include "tests/lexicon/damagedlexicons.h"
#include "tests/lexicon/lexiconprogram.h"

#include <QDir>
#include <QTest>

using namespace Qt::StringLiterals;

using namespace teskel::test;

/// repair, seen from outside: what it keeps, what it says is lost.
class TestProgramRepair : public QObject
{
    Q_OBJECT

private slots:
    void soundLexiconStaysTheSame_data();
    void soundLexiconStaysTheSame();
    void everyDamagedLexiconBecomesSound_data();
    void everyDamagedLexiconBecomesSound();
    void lossesAreNamed_data();
    void lossesAreNamed();
    void neighboursAreNamedTogether();
    void nothingIsWrittenWhenNothingCanBeRead_data();
    void nothingIsWrittenWhenNothingCanBeRead();

private:
    LexiconProgram _program;
};

namespace
{

QByteArray damaged(const char* name)
{
    for (const DamagedLexicon& each : damagedLexicons()) {
        if (each.name == name)
            return each.bytes;
    }
    return {};
}

/// The files of which nothing is left to read.
bool isEmpty(const DamagedLexicon& lexicon)
{
    return lexicon.name == "empty file" || lexicon.name == "cut in the header" ||
           lexicon.name == "cut in the record list";
}

} // namespace

void TestProgramRepair::soundLexiconStaysTheSame_data()
{
    QTest::addColumn<QStringList>("options");
    QTest::newRow("letter references") << QStringList();
    QTest::newRow("plain form") << words({"--plain-latin", "--force"});
}

void TestProgramRepair::soundLexiconStaysTheSame()
{
    QFETCH(QStringList, options);
    const QByteArray tsv = "\tIn 2 Sprachen\nhouse\t1. Haus\\n2. am 17. Mai, 3\n"
                           "вода\twater…\nzoo\tx <i>3</i> &lt; 4\n";
    QCOMPARE(_program.run(words({"build", "-", "-o", "a.PDB"}) + options, tsv).code, 0);
    const ProgramResult result = _program.run(words({"repair", "a.PDB", "-o", "b.PDB", "-q"}));
    QCOMPARE(result.err, QByteArray());
    QCOMPARE(result.code, 0);
    QVERIFY(_program.bytesOf("b.PDB") == _program.bytesOf("a.PDB"));
}

void TestProgramRepair::everyDamagedLexiconBecomesSound_data()
{
    QTest::addColumn<QByteArray>("bytes");
    for (const DamagedLexicon& each : damagedLexicons()) {
        if (!isEmpty(each))
            QTest::newRow(each.name.constData()) << each.bytes;
    }
}

void TestProgramRepair::everyDamagedLexiconBecomesSound()
{
    QFETCH(QByteArray, bytes);
    QVERIFY(writeFile(_program.path("damaged.PDB"), bytes));
    const ProgramResult result =
        _program.run(words({"repair", "damaged.PDB", "-o", "repaired.PDB", "-q"}));
    if (result.code == 3) { // fixtures without a word
        QVERIFY2(
            result.err.endsWith("teskel-lexicon: damaged.PDB holds no entry that can be read\n"),
            result.err.constData());
        return;
    }
    QVERIFY2(result.code == 0 || result.code == 1, result.err.constData());
    QVERIFY2(result.code == 0 || result.err.contains("damaged.PDB: "), result.err.constData());
    QCOMPARE(_program.run(words({"verify", "repaired.PDB"})).code, 0);
}

void TestProgramRepair::lossesAreNamed_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<int>("code");
    QTest::addColumn<QByteArray>("losses");
    QTest::addColumn<QByteArray>("kept"); // its export
    const QByteArray all = "\tTest\nant\tAmeise\nBee\tBiene\ncat\tKatze\ndog\tHund\n";
    const auto offset = [](int record) {
        return QByteArray::number(offsetOf(soundBytes(), record));
    };
    const QByteArray other = "\tA dictionary made for a test\n";
    QTest::newRow("foreign creator") << damaged("foreign creator") << 0 << QByteArray() << all;
    QTest::newRow("index") << damaged("too few keys") << 0 << QByteArray() << all;
    QTest::newRow("record list is too short")
        << damaged("four records") << 1
        << "a record that the list does not name is found at byte " + offset(5) +
               " and kept, from \"ant\" to \"Bee\"\n"
               "a record that the list does not name is found at byte " +
               offset(6) + " and kept, from \"cat\" to \"dog\"\n"
        << all;
    QTest::newRow("offset into nowhere")
        << damaged("offset behind the file") << 1
        << QByteArray("record 6 does not unpack: it does not begin with a whole header; its "
                      "headwords are those from \"cat\"\n"
                      "a record that the list does not name is found at byte ") +
               offset(6) + " and kept, from \"cat\" to \"dog\"\n"
        << all;
    QTest::newRow("flipped bit")
        << damaged("flipped bit in a word record") << 1
        << QByteArray("record 5 does not unpack: its bytes do not match their checksum; its "
                      "headwords are those from \"ant\" to before \"cat\"\n")
        << QByteArray("\tTest\ncat\tKatze\ndog\tHund\n");
    QTest::newRow("description") << damaged("no header in the description") << 1
                                 << QByteArray(
                                        "record 2 does not unpack: the description is lost\n")
                                 << all.mid(6);
    QTest::newRow("cut headword")
        << damaged("record ends within a headword") << 1
        << QByteArray("record 6 ends within a headword, which is left out: \"bee\"\n")
        << other + "ant\tAmeise\n";
    QTest::newRow("cut article")
        << damaged("record ends within an article") << 1
        << QByteArray("record 6 ends within the article of \"bee\"; what is there is kept\n")
        << other + "ant\tAmeise\nbee\tBiene\n";
    QTest::newRow("bytes behind the end")
        << damaged("bytes behind the end of a record") << 1
        << QByteArray("record 6 goes on behind its end; 1 byte is left out\n")
        << other + "ant\tAmeise\nbee\tBiene\n";
    QTest::newRow("order") << damaged("records out of order") << 0 << QByteArray()
                           << other + "ant\tx\ncat\tx\n";
}

void TestProgramRepair::lossesAreNamed()
{
    QFETCH(QByteArray, bytes);
    QFETCH(QByteArray, losses);
    QVERIFY(writeFile(_program.path("damaged.PDB"), bytes));
    const ProgramResult result =
        _program.run(words({"repair", "damaged.PDB", "-o", "repaired.PDB", "-q"}));
    QByteArray expected;
    for (const QByteArray& line : losses.split('\n')) {
        if (!line.isEmpty())
            expected += "damaged.PDB: " + line + '\n';
    }
    QCOMPARE(result.err, expected);
    QTEST(result.code, "code");
    QTEST(_program.run(words({"export", "repaired.PDB"})).out, "kept");
}

void TestProgramRepair::neighboursAreNamedTogether()
{
    constexpr qsizetype countOffset = 76; // of the number of records, in the header
    QByteArray header = soundBytes().left(78);
    header[countOffset] = '\x10';
    QVERIFY(writeFile(_program.path("damaged.PDB"), header));
    const ProgramResult result =
        _program.run(words({"repair", "damaged.PDB", "-o", "repaired.PDB"}));
    const int last = 0x1000 + header.at(countOffset + 1) - 1;
    QCOMPARE(result.err, "damaged.PDB: records 5 to " + QByteArray::number(last) +
                             " are not in the record list any more\n"
                             "damaged.PDB: record 2 does not unpack: the description is lost\n"
                             "teskel-lexicon: damaged.PDB holds no entry that can be read\n");
}

void TestProgramRepair::nothingIsWrittenWhenNothingCanBeRead_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::newRow("empty") << QByteArray();
    QTest::newRow("text") << QByteArray("This is no dictionary.\n").repeated(100);
    for (const DamagedLexicon& each : damagedLexicons()) {
        if (isEmpty(each))
            QTest::newRow(each.name.constData()) << each.bytes;
    }
}

void TestProgramRepair::nothingIsWrittenWhenNothingCanBeRead()
{
    QFETCH(QByteArray, bytes);
    QVERIFY(writeFile(_program.path("damaged.PDB"), bytes));
    QVERIFY(writeFile(_program.path("old.PDB"), "old"));
    const QStringList before = QDir(_program.directory()).entryList();
    const ProgramResult result =
        _program.run(words({"repair", "damaged.PDB", "--force", "-o", "old.PDB"}));
    QCOMPARE(result.code, 3);
    QVERIFY(result.err.endsWith("teskel-lexicon: damaged.PDB holds no entry that can be read\n"));
    QCOMPARE(_program.bytesOf("old.PDB"), QByteArray("old"));
    QCOMPARE(QDir(_program.directory()).entryList(), before);
}

QTEST_GUILESS_MAIN(TestProgramRepair)
#include "test_program_repair.moc"
