// SPDX-License-Identifier: MIT
#include "tests/lexicon/lexiconprogram.h"
#include "tests/support/palmwriter.h"
#include "tests/support/stardictwriter.h"

#include <QDir>
#include <QFile>
#include <QMap>
#include <QTest>

#include <unistd.h>

using namespace Qt::StringLiterals;

using namespace teskel::test;

/// Outputs that are files which the same command reads or writes already.
class TestProgramSameFile : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void isRefused_data();
    void isRefused();
    void partThatIsNotThereIsRefused_data();
    void partThatIsNotThereIsRefused();
    void othersOfTheDirectoryAreWritten();

private:
    QMap<QString, QByteArray> contents() const;

    LexiconProgram _program;
};

void TestProgramSameFile::initTestCase()
{
    QVERIFY(writeFile(_program.path("a.tsv"), "house\tHaus\n"));
    QVERIFY(writeFile(_program.path("d.index"), "house\tA\tL\n"));
    QVERIFY(writeFile(_program.path("d.dict"), "house\nHaus\n"));
    QCOMPARE(_program.run(words({"build", "a.tsv", "-o", "c.PDB"})).code, 0);
    QVERIFY(QFile::copy(_program.path("c.PDB"), _program.path("c.dict")));
    QVERIFY(QFile::link(u"a.tsv"_s, _program.path("symbolic")));
    QCOMPARE(::link(QFile::encodeName(_program.path("a.tsv")).constData(),
                    QFile::encodeName(_program.path("hard")).constData()),
             0);
    QVERIFY(QFile::link(u"x.ifo"_s, _program.path("x.idx")));
    QVERIFY(QFile::link(u"y.index"_s, _program.path("y.dict")));
    QVERIFY(QDir(_program.directory()).mkdir(u"sub"_s));
    QVERIFY(QFile::link(u"new.PDB"_s, _program.path("dangling1")));
    QVERIFY(QFile::link(u"sub/../new.PDB"_s, _program.path("dangling2")));
    QVERIFY(QFile::link(u"dangling2"_s, _program.path("dangling3")));
    QVERIFY(StarDictWriter().add("house", "Haus").write(_program.path("s")));
    QVERIFY(QFile::link(u"s.syn"_s, _program.path("synonyms")));
}

void TestProgramSameFile::isRefused_data()
{
    QTest::addColumn<QString>("command");
    QTest::addColumn<QByteArray>("sentence");
    const auto add = [](const char* command, const char* output, const char* other) {
        QTest::newRow(command) << QString::fromUtf8(command)
                               << QByteArray("teskel-lexicon: cannot write ") + output +
                                      ": it is the same file as the " + other + '\n';
    };
    add("build a.tsv -o a.tsv", "a.tsv", "source a.tsv");
    add("build a.tsv -o ./sub/../a.tsv", "./sub/../a.tsv", "source a.tsv");
    add("build a.tsv -o hard", "hard", "source a.tsv");
    add("build a.tsv -o symbolic", "symbolic", "source a.tsv");
    add("build symbolic -o a.tsv", "a.tsv", "source symbolic");
    add("build d.index a.tsv -o a.tsv", "a.tsv", "source a.tsv");
    add("build d.index -o d.dict", "d.dict", "source d.dict");
    add("build d -o d.index", "d.index", "source d.index");
    add("build a.tsv -o b.PDB --reverse a.tsv", "a.tsv", "source a.tsv");
    add("build a.tsv -o b.PDB --reverse b.PDB", "b.PDB", "output b.PDB");
    add("build a.tsv -o b.PDB --reverse sub/../b.PDB", "sub/../b.PDB", "output b.PDB");
    add("build a.tsv -o dangling1 --reverse dangling2", "dangling2", "output dangling1");
    add("build a.tsv -o new.PDB --reverse dangling2", "dangling2", "output new.PDB");
    add("build a.tsv -o dangling3 --reverse dangling1", "dangling1", "output dangling3");
    add("export c.PDB -o c.PDB", "c.PDB", "lexicon c.PDB");
    add("export c.dict -o c --to dictd", "c.dict", "lexicon c.dict");
    add("export c.dict -o ./c --to stardict", "./c.dict", "lexicon c.dict");
    add("export c.PDB -o x --to stardict", "x.idx", "output x.ifo");
    add("export c.PDB -o y --to dictd", "y.dict", "output y.index");
    add("repair c.PDB -o ./c.PDB", "./c.PDB", "lexicon c.PDB");
}

void TestProgramSameFile::isRefused()
{
    QFETCH(QString, command);
    QFETCH(QByteArray, sentence);
    const QMap<QString, QByteArray> before = contents();
    const ProgramResult result = _program.run(command.split(u' '));
    QCOMPARE(result.err, sentence);
    QCOMPARE(result.out, QByteArray());
    QCOMPARE(result.code, 2);
    QVERIFY(contents() == before);
}

void TestProgramSameFile::partThatIsNotThereIsRefused_data()
{
    QTest::addColumn<QString>("command");
    QTest::addColumn<QByteArray>("output");
    QTest::addColumn<QByteArray>("source");
    const auto add = [](const char* command, const char* output, const char* source) {
        QTest::newRow(command) << QString::fromUtf8(command) << QByteArray(output)
                               << QByteArray(source);
    };
    add("build s.ifo -o s.syn", "s.syn", "s.ifo");
    add("build s -o ./s.syn", "./s.syn", "s");
    add("build s.ifo -o synonyms", "synonyms", "s.ifo");
    add("build s.ifo -o s.idx.gz", "s.idx.gz", "s.ifo");
    add("build d.index -o d.dict.dz", "d.dict.dz", "d.index");
    add("build a.tsv d.index -o b.PDB --reverse d.dict.dz", "d.dict.dz", "d.index");
}

/// The next build would read it.
void TestProgramSameFile::partThatIsNotThereIsRefused()
{
    QFETCH(QString, command);
    QFETCH(QByteArray, output);
    QFETCH(QByteArray, source);
    const QMap<QString, QByteArray> before = contents();
    const ProgramResult result = _program.run(command.split(u' '));
    QCOMPARE(result.err, "teskel-lexicon: cannot write " + output +
                             ": it would be read as a part of the source " + source + '\n');
    QCOMPARE(result.code, 2);
    QVERIFY(contents() == before);
}

void TestProgramSameFile::othersOfTheDirectoryAreWritten()
{
    QCOMPARE(
        _program.run(words({"build", "d.index", "-o", "d.PDB", "--reverse", "sub/d.PDB"})).code, 0);
    QCOMPARE(_program.run(words({"build", "a.tsv", "-o", "d.PDB", "--reverse", "sub/d.PDB"})).code,
             0);
    QCOMPARE(_program.run(words({"export", "d.PDB", "-o", "d", "--to", "dictd"})).code, 0);
    QCOMPARE(_program.run(words({"repair", "d.PDB", "-o", "sub/d.PDB"})).code, 0);
}

QMap<QString, QByteArray> TestProgramSameFile::contents() const
{
    QMap<QString, QByteArray> files;
    for (const QString& name : QDir(_program.directory()).entryList(QDir::Files | QDir::Hidden))
        files[name] = _program.bytesOf(name.toUtf8().constData());
    return files;
}

QTEST_GUILESS_MAIN(TestProgramSameFile)
#include "test_program_samefile.moc"
