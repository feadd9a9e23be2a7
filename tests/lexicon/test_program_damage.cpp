// SPDX-License-Identifier: MIT
#include "tests/lexicon/damagedlexicons.h"
#include "tests/lexicon/lexiconprogram.h"
#include "tests/support/palmwriter.h"

#include <QFile>
#include <QTest>

using namespace Qt::StringLiterals;

using namespace teskel::test;

/// What commands say of damaged lexicons: whole sentences that name the file, none of the engine's.
class TestProgramDamage : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void everySentenceNamesTheFile_data();
    void everySentenceNamesTheFile();
    void saysWhyItIsNoLexicon_data();
    void saysWhyItIsNoLexicon();
    void wordOfAnUnreadableRecordIsNotNotFound_data();
    void wordOfAnUnreadableRecordIsNotNotFound();
    void lostDescriptionIsDamage_data();
    void lostDescriptionIsDamage();

private:
    LexiconProgram _program;
};

namespace
{

/// Two word records, the second of which is overwritten.
QByteArray withUnreadableRecord()
{
    QByteArray bytes = soundBytes();
    const qsizetype place = offsetOf(bytes, 6);
    for (qsizetype i = place; i < bytes.size(); ++i)
        bytes[i] = '\x55';
    return bytes;
}

} // namespace

void TestProgramDamage::initTestCase()
{
    QVERIFY(writeFile(_program.path("sound.PDB"), soundBytes()));
    QVERIFY(writeFile(_program.path("unreadable.PDB"), withUnreadableRecord()));
    QByteArray cut = soundBytes();
    cut.chop(1);
    QVERIFY(writeFile(_program.path("cut.PDB"), cut));
}

void TestProgramDamage::everySentenceNamesTheFile_data()
{
    QTest::addColumn<QByteArray>("bytes");
    for (const DamagedLexicon& each : damagedLexicons())
        QTest::newRow(each.name.constData()) << each.bytes;
    QTest::newRow("unreadable record") << withUnreadableRecord();
    for (const qsizetype size : {90, 150, 250})
        QTest::addRow("cut to %lld bytes", static_cast<long long>(size)) << soundBytes().left(size);
}

void TestProgramDamage::everySentenceNamesTheFile()
{
    QFETCH(QByteArray, bytes);
    QVERIFY(writeFile(_program.path("bad.PDB"), bytes));
    for (const char* command :
         {"info bad.PDB", "list bad.PDB", "export bad.PDB", "export bad.PDB -o out.tsv",
          "export bad.PDB --to dictd -o out", "find bad.PDB ant cat dog zebra",
          "find --prefix bad.PDB a c", "diff bad.PDB sound.PDB", "diff sound.PDB bad.PDB",
          "verify bad.PDB", "repair bad.PDB -q -o repaired.PDB --force"}) {
        const ProgramResult result = _program.run(QString::fromLatin1(command).split(u' '));
        QVERIFY2(result.code >= 0 && result.code <= 3, command);
        for (const QByteArray& line : result.err.split('\n')) {
            const bool isNamed = line.isEmpty() || line.startsWith("bad.PDB: ") ||
                                 line.startsWith("teskel-lexicon: bad.PDB") ||
                                 line.startsWith("teskel-lexicon: not found: ");
            QVERIFY2(isNamed, QByteArray(command + QByteArray(": ") + line).constData());
        }
    }
}

void TestProgramDamage::saysWhyItIsNoLexicon_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QByteArray>("reason");
    QByteArray few = soundBytes();
    few[76] = '\0';
    few[77] = '\2';
    QTest::newRow("few records") << few << QByteArray(": it has fewer than 5 records");
    QTest::newRow("cut in the list")
        << soundBytes().left(100) << QByteArray(": its word index cannot be read");
    QByteArray topics = soundBytes();
    topics[offsetOf(topics, 0)] = '#';
    QTest::newRow("topics") << topics << QByteArray(": it is a dictionary of topics");
    QTest::newRow("text") << QByteArray(200, 'x') << QByteArray();
}

void TestProgramDamage::saysWhyItIsNoLexicon()
{
    QFETCH(QByteArray, bytes);
    QFETCH(QByteArray, reason);
    QVERIFY(writeFile(_program.path("bad.PDB"), bytes));
    for (const char* command :
         {"info bad.PDB", "list bad.PDB", "export bad.PDB", "find bad.PDB x"}) {
        const ProgramResult result = _program.run(QString::fromLatin1(command).split(u' '));
        QCOMPARE(result.err, "teskel-lexicon: bad.PDB is no lexicon" + reason + '\n');
        QCOMPARE(result.code, 1);
    }
}

void TestProgramDamage::wordOfAnUnreadableRecordIsNotNotFound_data()
{
    QTest::addColumn<QString>("command");
    QTest::addColumn<QByteArray>("out");
    QTest::addColumn<QByteArray>("err");
    QTest::addColumn<int>("code");
    const QByteArray dog = "teskel-lexicon: unreadable.PDB: record 6 cannot be read, where \"dog\" "
                           "would be\n";
    const QByteArray cut =
        "teskel-lexicon: cut.PDB: record 6 cannot be read, where \"dog\" would be\n";
    QTest::newRow("in it") << u"find unreadable.PDB dog"_s << QByteArray() << dog << 3;
    QTest::newRow("twice") << u"find unreadable.PDB dog dog"_s << QByteArray() << dog + dog << 3;
    QTest::newRow("cut off") << u"find cut.PDB dog"_s << QByteArray() << cut << 3;
    QTest::newRow("beyond its reach") << u"find unreadable.PDB ape"_s << QByteArray()
                                      << QByteArray("teskel-lexicon: not found: ape\n") << 1;
    QTest::newRow("both") << u"find unreadable.PDB ape dog"_s << QByteArray()
                          << "teskel-lexicon: not found: ape\n" + dog << 3;
    QTest::newRow("both, the other way") << u"find unreadable.PDB dog ape"_s << QByteArray()
                                         << dog + "teskel-lexicon: not found: ape\n"
                                         << 3;
    QTest::newRow("as JSON") << u"find unreadable.PDB --json dog"_s << QByteArray() << dog << 3;
}

void TestProgramDamage::wordOfAnUnreadableRecordIsNotNotFound()
{
    QFETCH(QString, command);
    const ProgramResult result = _program.run(command.split(u' '));
    QTEST(result.out, "out");
    QTEST(result.err, "err");
    QTEST(result.code, "code");
}

void TestProgramDamage::lostDescriptionIsDamage_data()
{
    QTest::addColumn<QString>("command");
    QTest::newRow("info") << u"info bad.PDB"_s;
    QTest::newRow("export") << u"export bad.PDB"_s;
    QTest::newRow("export to a file") << u"export bad.PDB -o lost.tsv"_s;
    QTest::newRow("export to dictd") << u"export bad.PDB --to dictd -o lost"_s;
    QTest::newRow("export to StarDict") << u"export bad.PDB --to stardict -o lost"_s;
}

/// It was left out of exports without a word.
void TestProgramDamage::lostDescriptionIsDamage()
{
    QFETCH(QString, command);
    QByteArray bytes = soundBytes();
    bytes[offsetOf(bytes, 2)] = '\x55';
    QVERIFY(writeFile(_program.path("bad.PDB"), bytes));
    const ProgramResult result = _program.run(command.split(u' '));
    QCOMPARE(result.err, QByteArray("teskel-lexicon: bad.PDB: record 2 cannot be unpacked\n"));
    QCOMPARE(result.out, QByteArray());
    QCOMPARE(result.code, 1);
    for (const char* file : {"lost.tsv", "lost.dict", "lost.index", "lost.ifo"})
        QVERIFY(!QFile::exists(_program.path(file)));
}

QTEST_GUILESS_MAIN(TestProgramDamage)
#include "test_program_damage.moc"
