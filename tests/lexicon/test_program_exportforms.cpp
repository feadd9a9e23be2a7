// SPDX-License-Identifier: MIT
#include "tests/lexicon/damagedlexicons.h"
#include "tests/lexicon/lexiconprogram.h"

#include <QDir>
#include <QProcess>
#include <QTest>

using namespace Qt::StringLiterals;

using namespace teskel::test;

/// Lexicons for other programs, and what those read in them.
class TestProgramExportForms : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void starDictFilesAreInOrder();
    void starDictReaderFindsArticles_data();
    void starDictReaderFindsArticles();
    void dictdFilesAreInOrder();
    void dictdFilesBuildALexiconAgain();
    void longHeadwordsAreCutForStarDict();
    void tsvIsTheDefault();
    void failuresLeaveNothing_data();
    void failuresLeaveNothing();

private:
    LexiconProgram _program;
};

void TestProgramExportForms::initTestCase()
{
    QVERIFY(QDir(_program.directory()).mkdir(u"dictionaries"_s));
    QCOMPARE(_program
                 .run(words({"build", "-", "-o", "a.PDB"}),
                      "\tIn <i>2</i> Sprachen\n"
                      "house\t1. Haus &lt;neut>\\n2. am 17. Mai, 3 &hellip;\n"
                      "вода\twater\nZoo\tx <i>3</i> &auml; 4\n(x)  y\tpar\nähnlich\tsimilar\n"
                      "C\\\\C++\tlang\n+\tplus\n")
                 .code,
             0);
    QCOMPARE(
        _program.run(words({"export", "a.PDB", "--to", "stardict", "-o", "dictionaries/s"})).code,
        0);
    QCOMPARE(_program.run(words({"export", "a.PDB", "--to", "dictd", "-o", "d"})).code, 0);
}

void TestProgramExportForms::starDictFilesAreInOrder()
{
    QCOMPARE(_program.bytesOf("dictionaries/s.ifo"),
             QByteArray("StarDict's dict ifo file\nversion=2.4.2\nwordcount=7\nidxfilesize=94\n"
                        "bookname=In 2 Sprachen\nsametypesequence=h\n"));
    const QByteArray index = _program.bytesOf("dictionaries/s.idx");
    const QByteArray articles = _program.bytesOf("dictionaries/s.dict");
    QCOMPARE(index.size(), 94);
    QStringList found;
    for (qsizetype at = 0; at < index.size();) {
        const QByteArray word = index.mid(at, index.indexOf('\0', at) - at);
        at += word.size() + 1;
        const auto number = [&index](qsizetype place) {
            quint32 value = 0;
            for (int i = 0; i < 4; ++i)
                value = value << 8 | static_cast<quint8>(index[place + i]);
            return value;
        };
        found += QString::fromUtf8(word + '=' + articles.mid(number(at), number(at + 4)));
        at += 8;
    }
    QCOMPARE(found,
             words({"(x) y=par", "+=plus", "C\\C++=lang",
                    "house=1. Haus &lt;neut><br>2. am 17. Mai, 3 &hellip;",
                    "voda=<b>вода</b><br>water", "Zoo=x <i>3</i> &auml; 4", "ähnlich=similar"}));
}

void TestProgramExportForms::starDictReaderFindsArticles_data()
{
    QTest::addColumn<QString>("word");
    QTest::addColumn<QByteArray>("article");
    QTest::newRow("first") << u"(x) y"_s << QByteArray("par");
    QTest::newRow("senses") << u"house"_s
                            << QByteArray("1. Haus &lt;neut><br>2. am 17. Mai, 3 &hellip;");
    QTest::newRow("transliterated") << u"voda"_s << QByteArray("<b>вода</b><br>water");
    QTest::newRow("umlaut, last") << u"ähnlich"_s << QByteArray("similar");
    QTest::newRow("signs") << u"C\\C++"_s << QByteArray("lang");
}

void TestProgramExportForms::starDictReaderFindsArticles()
{
    QFETCH(QString, word);
    QFETCH(QByteArray, article);
    QProcess reader;
    reader.start(u"sdcv"_s, {u"--non-interactive"_s, u"--exact-search"_s, u"--only-data-dir"_s,
                             u"--data-dir"_s, _program.path("dictionaries"), u"--utf8-input"_s,
                             u"--utf8-output"_s, word});
    QVERIFY2(reader.waitForFinished(), qPrintable(reader.errorString()));
    const QByteArray out = reader.readAllStandardOutput();
    QVERIFY2(out.contains("-->In 2 Sprachen\n-->" + word.toUtf8() + "\n\n" + article + "\n"),
             out.constData());
}

void TestProgramExportForms::dictdFilesAreInOrder()
{
    QCOMPARE(_program.bytesOf("d.index"), QByteArray("+\tZ\tH\n"
                                                     "00databaseshort\tB\tO\n"
                                                     "00databaseutf8\tA\tB\n"
                                                     "cc\tg\tL\n"
                                                     "house\tr\tq\n"
                                                     "voda\tBV\tU\n"
                                                     "x y\tP\tK\n"
                                                     "zoo\tBp\tN\n"
                                                     "ähnlich\tB2\tR\n"));
    QCOMPARE(_program.bytesOf("d.dict"),
             QByteArray("\nIn 2 Sprachen\n(x) y\npar\n+\nplus\nC\\C++\nlang\nhouse\n"
                        "1. Haus <neut>\n2. am 17. Mai, 3 …\nvoda\nвода\nwater\nZoo\nx 3 ä 4\n"
                        "ähnlich\nsimilar\n"));
}

void TestProgramExportForms::dictdFilesBuildALexiconAgain()
{
    QCOMPARE(_program.run(words({"build", "d.index", "-o", "again.PDB", "-q"})).code, 0);
    QCOMPARE(_program.run(words({"list", "again.PDB"})).out,
             _program.run(words({"list", "a.PDB"})).out);
    QCOMPARE(_program.run(words({"find", "again.PDB", "house"})).out,
             QByteArray("house\n1. Haus &lt;neut>\n2. am 17. Mai, 3 …\n\n"));
}

void TestProgramExportForms::longHeadwordsAreCutForStarDict()
{
    const QByteArray tsv = QByteArray("ä").repeated(200) + "\tx\n";
    QCOMPARE(_program.run(words({"build", "-", "-o", "long.PDB", "-q"}), tsv).code, 0);
    QCOMPARE(_program.run(words({"export", "long.PDB", "--to", "stardict", "-o", "long"})).code, 0);
    const QByteArray index = _program.bytesOf("long.idx");
    QCOMPARE(index.left(index.indexOf('\0')), QByteArray("ä").repeated(127));
}

void TestProgramExportForms::tsvIsTheDefault()
{
    const QByteArray tsv = _program.run(words({"export", "a.PDB"})).out;
    QCOMPARE(tsv.count('\n'), 8);
    QCOMPARE(_program.run(words({"export", "a.PDB", "--to", "tsv"})).out, tsv);
}

void TestProgramExportForms::failuresLeaveNothing_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<int>("code");
    QTest::newRow("no name") << words({"a.PDB", "--to", "stardict"}) << 2;
    QTest::newRow("standard output") << words({"a.PDB", "--to", "dictd", "-o", "-"}) << 2;
    QTest::newRow("unknown program") << words({"a.PDB", "--to", "x", "-o", "x"}) << 2;
    QTest::newRow("no such folder") << words({"a.PDB", "--to", "stardict", "-o", "missing/x"}) << 3;
    QTest::newRow("a folder has the name of a file")
        << words({"a.PDB", "--to", "dictd", "-o", "taken"}) << 3;
    QTest::newRow("damaged lexicon, StarDict")
        << words({"damaged.PDB", "--to", "stardict", "-o", "x"}) << 1;
    QTest::newRow("damaged lexicon, dictd")
        << words({"damaged.PDB", "--to", "dictd", "-o", "x"}) << 1;
}

void TestProgramExportForms::failuresLeaveNothing()
{
    QFETCH(QStringList, arguments);
    QFETCH(int, code);
    QDir(_program.directory()).mkdir(u"taken.dict"_s);
    QByteArray damaged = soundBytes();
    damaged[offsetOf(damaged, 6)] = 'x';
    QVERIFY(writeFile(_program.path("damaged.PDB"), damaged));
    const QStringList before = QDir(_program.directory()).entryList();
    const ProgramResult result = _program.run(words({"export"}) + arguments);
    QCOMPARE(result.code, code);
    QVERIFY(!result.err.isEmpty());
    QCOMPARE(QDir(_program.directory()).entryList(), before);
}

QTEST_GUILESS_MAIN(TestProgramExportForms)
#include "test_program_exportforms.moc"
