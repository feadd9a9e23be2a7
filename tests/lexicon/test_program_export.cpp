// SPDX-License-Identifier: MIT
#include "tests/lexicon/lexiconprogram.h"
#include "tests/support/dictionarywriter.h"

#include <QFile>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTest>

using namespace Qt::StringLiterals;

using namespace teskel::test;

/// The commands that look at a lexicon as a whole: export, info and verify.
class TestProgramExport : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void exportAndBuildGiveTheSameFile_data();
    void exportAndBuildGiveTheSameFile();
    void exportWritesFiles();
    void infoPrintsFigures();
    void infoPrintsJson();
    void infoTellsTheForm_data();
    void infoTellsTheForm();
    void verifyTellsValidFromInvalid();
    void damagedRecordEndsAWalkWithOne();

private:
    LexiconProgram _program;
};

void TestProgramExport::initTestCase()
{
    QVERIFY(_program.buildSmallLexicon());
}

void TestProgramExport::exportAndBuildGiveTheSameFile_data()
{
    QTest::addColumn<QStringList>("options");
    QTest::newRow("defaults") << QStringList();
    QTest::newRow("method 4") << words({"--method", "4"});
    QTest::newRow("small records") << words({"--record-size", "256"});
    QTest::newRow("described") << words({"--description", "a < b … & 1. c"});
    QTest::newRow("without numbers") << words({"--no-numbers"});
}

void TestProgramExport::exportAndBuildGiveTheSameFile()
{
    QFETCH(QStringList, options);
    const QByteArray headword = QByteArray("long\\ & <head> 1. ").repeated(40);
    QByteArray tsv = "\tdescribed\n#1\tfirst\n\\##2\tmarks\na\\|b|c\tbars\n" + headword +
                     "\tlong\n \tempty\n"
                     "<g>\tx\n<g>\ty\n<д>\tx\n<d>\ty\n&lt;\tx\n<b" +
                     QByteArray(600, 'b') + "\tlong\n";
    for (int i = 0; i < 20; ++i)
        tsv += "house\tsense 3. of\\n1. \\\\n…\\t<b>&#8211;</b> ½ " + QByteArray(3000, 'x') + "\n";
    for (int i = 0; i < 20; ++i)
        tsv += "House\t" + QByteArray::number(i) + QByteArray(3000, 'x') + "\n";
    tsv += "<q>\t" + QByteArray(40000, 'x') + "\n<Q>\t" + QByteArray(30000, 'x') + "\n";
    QCOMPARE(_program.run(words({"build", "-", "-o", "first.PDB", "--force"}) + options, tsv).code,
             0);
    const ProgramResult exported = _program.run(words({"export", "first.PDB"}));
    QCOMPARE(exported.code, 0);
    // The description travels along; the other options are asked for again.
    if (options.contains(u"--description"_s))
        options.clear();
    QCOMPARE(_program.run(words({"build", "-", "-o", "second.PDB"}) + options, exported.out).code,
             0);
    QVERIFY(_program.bytesOf("first.PDB") == _program.bytesOf("second.PDB"));
    QCOMPARE(_program.run(words({"verify", "second.PDB"})).code, 0);
}

void TestProgramExport::exportWritesFiles()
{
    const ProgramResult exported =
        _program.run(words({"export", "small.PDB", "-o", "exported.tsv"}));
    QCOMPARE(exported.code, 0);
    QCOMPARE(exported.out, QByteArray());
    QCOMPARE(_program.bytesOf("exported.tsv"), _program.run(words({"export", "small.PDB"})).out);
    QCOMPARE(_program.bytesOf("exported.tsv"),
             QByteArray("\tA small dictionary, made for tests\n"
                        "#1\tnumber one\n"
                        "C\\\\C++\ta programming\\tlanguage\n"
                        "house\t1. Haus &lt;neut>\\n2. Gebäude &lt;neut>\\nsee: building\n"
                        "House\tRepräsentantenhaus\n"
                        "seventeen\tam 17. Mai, 1. Akt\n"
                        "to build\tbauen, &bdquo;errichten&ldquo;\n"
                        "ähnlich\tsimilar\n"));
    QCOMPARE(_program.run(words({"export", "small.PDB", "-o", "no/such/place.tsv"})).code, 3);
}

void TestProgramExport::infoPrintsFigures()
{
    const ProgramResult result = _program.run(words({"info", "small.PDB"}));
    QCOMPARE(result.code, 0);
    QVERIFY(result.out.contains("name:          small\n"));
    QVERIFY(result.out.contains("description:   A small dictionary, made for tests\n"));
    QVERIFY(result.out.contains("headwords:     7\n"));
    QVERIFY(result.out.contains("word records:  1\n"));
    QVERIFY(result.out.contains("methods:       1\n"));
    QVERIFY(result.out.contains("characters:    Latin-1 and letter references\n"));
}

void TestProgramExport::infoPrintsJson()
{
    const ProgramResult result = _program.run(words({"info", "small.PDB", "--json"}));
    QCOMPARE(result.code, 0);
    const QJsonObject facts = QJsonDocument::fromJson(result.out).object();
    QCOMPARE(facts[u"headwords"_s].toInt(), 7);
    QCOMPARE(facts[u"wordRecords"_s].toInt(), 1);
    QCOMPARE(facts[u"name"_s].toString(), u"small"_s);
    QCOMPARE(facts[u"fileBytes"_s].toInt(), _program.bytesOf("small.PDB").size());
}

void TestProgramExport::infoTellsTheForm_data()
{
    QTest::addColumn<QByteArray>("tsv");
    QTest::addColumn<QStringList>("options");
    QTest::addColumn<bool>("hasReferences");
    QTest::newRow("digits") << QByteArray("house\t10 Euro\n") << QStringList() << true;
    QTest::newRow("digits, plain")
        << QByteArray("house\t10 Euro\n") << words({"--plain-latin"}) << false;
    QTest::newRow("spelled references, plain")
        << QByteArray("\t&_ede;\nhouse\t&_ede; 10 &_db;\n") << words({"--plain-latin"}) << false;
    QTest::newRow("other letters") << QByteArray("house\tдом\n") << QStringList() << true;
    QTest::newRow("other letters, plain")
        << QByteArray("house\tдом\n") << words({"--plain-latin"}) << false;
    QTest::newRow("description") << QByteArray("\tдом\nhouse\tHaus\n") << QStringList() << true;
    QTest::newRow("nothing to refer to")
        << QByteArray("\t1 ä\nhouse\t1. Haus &_z;\n") << QStringList() << false;
}

void TestProgramExport::infoTellsTheForm()
{
    QFETCH(QByteArray, tsv);
    QFETCH(QStringList, options);
    QFETCH(bool, hasReferences);
    QCOMPARE(_program.run(words({"build", "-", "-o", "form.PDB", "-q"}) + options, tsv).code, 0);
    QCOMPARE(
        _program.run(words({"info", "form.PDB"})).out.contains("characters:    plain Latin-1\n"),
        !hasReferences);
    const ProgramResult json = _program.run(words({"info", "form.PDB", "--json"}));
    QCOMPARE(QJsonDocument::fromJson(json.out).object()[u"letterReferences"_s].toBool(),
             hasReferences);
}

void TestProgramExport::verifyTellsValidFromInvalid()
{
    const ProgramResult valid = _program.run(words({"verify", "small.PDB"}));
    QCOMPARE(valid.code, 0);
    QCOMPARE(valid.out, QByteArray("small.PDB: valid, 7 headwords in 1 word record\n"));
    QByteArray damaged = _program.bytesOf("small.PDB");
    damaged.chop(1);
    QVERIFY(writeFile(_program.path("damaged.PDB"), damaged));
    const ProgramResult both = _program.run(words({"verify", "damaged.PDB", "small.PDB"}));
    QCOMPARE(both.code, 1);
    QCOMPARE(both.out, QByteArray("damaged.PDB: unpack: record 5 does not unpack: its bytes do not "
                                  "match their checksum\n"
                                  "small.PDB: valid, 7 headwords in 1 word record\n"));
    QCOMPARE(_program.run(words({"verify", "damaged.PDB", "missing.PDB"})).code, 3);
}

void TestProgramExport::damagedRecordEndsAWalkWithOne()
{
    QVERIFY(DictionaryWriter()
                .addRecord({{"ant", "Ameise"}})
                .addPackedRecord("bee", "not a record")
                .write(_program.path("half.PDB")));
    const ProgramResult result = _program.run(words({"export", "half.PDB"}));
    QCOMPARE(result.code, 1);
    QVERIFY(result.out.endsWith("ant\tAmeise\n"));
    QVERIFY(result.err.contains("teskel-lexicon: half.PDB: record 6 cannot be unpacked\n"));
    QCOMPARE(_program.run(words({"export", "half.PDB", "-o", "half.tsv"})).code, 1);
    QVERIFY(!QFile::exists(_program.path("half.tsv")));
}

QTEST_GUILESS_MAIN(TestProgramExport)
#include "test_program_export.moc"
