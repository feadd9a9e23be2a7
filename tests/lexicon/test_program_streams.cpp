// SPDX-License-Identifier: MIT
#include "tests/lexicon/lexiconprogram.h"
#include "tests/support/palmwriter.h"

#include <QFile>
#include <QProcess>
#include <QTest>

#include <fcntl.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

using namespace teskel::test;

/// Standard streams that are closed, or are files which the command reads.
class TestProgramStreams : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void closedOnesTakeNothingOfAFile_data();
    void closedOnesTakeNothingOfAFile();
    void closedOutputIsAnError();
    void outputThatIsReadIsRefused_data();
    void outputThatIsReadIsRefused();
    void outputThatIsReadIsNotUsed_data();
    void outputThatIsReadIsNotUsed();

private:
    ProgramResult runInto(const char* name, int flags, const QStringList& arguments,
                          const char* input = nullptr) const;

    LexiconProgram _program;
};

void TestProgramStreams::init()
{
    QVERIFY(writeFile(_program.path("a.tsv"), "house\tHaus\n\xE2\x99\xA5\theart\nno tab\ty\n"));
    QVERIFY(_program.buildSmallLexicon());
    QFile::remove(_program.path("link.PDB"));
    QVERIFY(QFile::link(u"small.PDB"_s, _program.path("link.PDB")));
    QVERIFY(writeFile(_program.path("words"), "house\n"));
}

void TestProgramStreams::closedOnesTakeNothingOfAFile_data()
{
    QTest::addColumn<int>("closed"); // a bit for each
    QTest::addColumn<QString>("command");
    QTest::addColumn<QByteArray>("output");
    for (int closed = 1; closed < 8; ++closed) {
        const auto add = [closed](const char* command, const char* output) {
            QTest::addRow("%s, %d", command, closed)
                << closed << QString::fromLatin1(command) << QByteArray(output);
        };
        add("build a.tsv -o out.PDB", "out.PDB");
        add("build a.tsv -o out.PDB --reverse reverse.PDB", "reverse.PDB");
        add("repair small.PDB -o out.PDB", "out.PDB");
        add("export small.PDB -o out.tsv", "out.tsv");
        add("export small.PDB --to stardict -o out", "out.dict");
    }
}

/// What a command tells must not go into what it writes.
void TestProgramStreams::closedOnesTakeNothingOfAFile()
{
    QFETCH(int, closed);
    QFETCH(QString, command);
    QFETCH(QByteArray, output);
    QCOMPARE(_program.run(command.split(u' ')).code, 0);
    const QByteArray expected = _program.bytesOf(output.constData());
    QVERIFY(QFile::remove(_program.path(output.constData())));
    QProcess process;
    process.setChildProcessModifier([closed] {
        for (const int stream : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO}) {
            if ((closed >> stream & 1) != 0)
                ::close(stream);
        }
    });
    QCOMPARE(_program.run(process, command.split(u' ')).code, 0);
    QVERIFY(_program.bytesOf(output.constData()) == expected);
}

void TestProgramStreams::closedOutputIsAnError()
{
    QProcess process;
    process.setChildProcessModifier([] { ::close(STDOUT_FILENO); });
    const ProgramResult result = _program.run(process, words({"list", "small.PDB"}));
    QCOMPARE(result.err, QByteArray("teskel-lexicon: cannot write to the standard output\n"));
    QCOMPARE(result.code, 3);
}

/// Runs a command whose output, and if there is an `input` whose input, is a file.
ProgramResult TestProgramStreams::runInto(const char* name, int flags, const QStringList& arguments,
                                          const char* input) const
{
    QProcess process;
    const QByteArray path = QFile::encodeName(_program.path(name));
    const QByteArray from = QFile::encodeName(_program.path(input ? input : ""));
    process.setChildProcessModifier([=] {
        ::dup2(::open(path.constData(), flags), STDOUT_FILENO);
        if (input)
            ::dup2(::open(from.constData(), O_RDONLY), STDIN_FILENO);
    });
    return _program.run(process, arguments);
}

void TestProgramStreams::outputThatIsReadIsRefused_data()
{
    QTest::addColumn<QString>("command");
    QTest::addColumn<QByteArray>("output");
    QTest::addColumn<QByteArray>("same");
    QTest::addColumn<int>("flags");
    for (const int flags : {O_RDWR, O_WRONLY | O_APPEND}) {
        const char* how = flags == O_RDWR ? "over it" : "behind it";
        const auto add = [flags, how](const char* command, const char* output, const char* same) {
            QTest::addRow("%s, %s", command, how)
                << QString::fromLatin1(command) << QByteArray(output) << QByteArray(same) << flags;
        };
        for (const char* command :
             {"export small.PDB", "export small.PDB -o -", "info small.PDB",
              "info --json small.PDB", "list small.PDB", "find small.PDB house", "find small.PDB -",
              "verify small.PDB", "verify link.PDB small.PDB", "diff small.PDB link.PDB"})
            add(command, "small.PDB", "lexicon small.PDB");
        add("list link.PDB", "small.PDB", "lexicon link.PDB");
        add("diff words small.PDB", "small.PDB", "lexicon small.PDB");
        add("find small.PDB house -", "words", "standard input");
    }
}

void TestProgramStreams::outputThatIsReadIsRefused()
{
    QFETCH(QString, command);
    QFETCH(QByteArray, output);
    QFETCH(QByteArray, same);
    QFETCH(int, flags);
    if (command.startsWith("verify link"_L1))
        same = "lexicon link.PDB";
    if (command.endsWith("small.PDB link.PDB"_L1))
        same = "lexicon small.PDB";
    const QByteArray before = _program.bytesOf(output.constData());
    const ProgramResult result = runInto(output.constData(), flags, command.split(u' '), "words");
    QCOMPARE(result.err,
             "teskel-lexicon: cannot write to the standard output: it is the same file as the " +
                 same + '\n');
    QCOMPARE(result.code, 2);
    QVERIFY(_program.bytesOf(output.constData()) == before);
}

void TestProgramStreams::outputThatIsReadIsNotUsed_data()
{
    QTest::addColumn<QString>("command");
    QTest::newRow("build") << u"build a.tsv -o out.PDB"_s;
    QTest::newRow("export") << u"export small.PDB -o out.tsv --force"_s;
    QTest::newRow("repair") << u"repair small.PDB -o out.PDB"_s;
    QTest::newRow("checks") << u"verify --list-checks"_s;
}

/// A command that prints nothing does not mind.
void TestProgramStreams::outputThatIsReadIsNotUsed()
{
    QFETCH(QString, command);
    const char* source = command.startsWith("build"_L1) ? "a.tsv" : "small.PDB";
    const QByteArray before = _program.bytesOf(source);
    const bool isPrinted = command.startsWith("verify"_L1);
    QCOMPARE(runInto(isPrinted ? "words" : source, O_WRONLY | O_APPEND, command.split(u' ')).code,
             0);
    QVERIFY(_program.bytesOf(source) == before);
}

QTEST_GUILESS_MAIN(TestProgramStreams)
#include "test_program_streams.moc"
