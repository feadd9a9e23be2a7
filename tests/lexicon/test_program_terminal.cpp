// SPDX-License-Identifier: MIT
#include "tests/lexicon/lexiconprogram.h"
#include "tests/lexicon/pseudoterminal.h"
#include "tests/support/palmwriter.h"

#include <QDir>
#include <QProcess>
#include <QTest>

#include <csignal>

#include <sys/wait.h>

using namespace Qt::StringLiterals;

using namespace teskel::test;

/// A build on a terminal: what is shown while it runs, and the key that ends it.
class TestProgramTerminal : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void progressIsShownAndTakenAway();
    void quietBuildShowsNothing();
    void dumbTerminalGetsNoProgress();
    void pipeGetsNoProgress();
    void interruptEndsABuild_data();
    void interruptEndsABuild();
    void shellsSeeTheSignalInTheExitCode_data();
    void shellsSeeTheSignalInTheExitCode();

private:
    QStringList files() const
    {
        return QDir(_program.directory())
            .entryList(QDir::AllEntries | QDir::System | QDir::NoDotAndDotDot);
    }

    LexiconProgram _program;
    QStringList _filesBefore;
};

namespace
{

constexpr auto clearedLine = "\r\x1B[K";
constexpr auto interruptKey = "\x03";

QStringList build(std::initializer_list<const char*> arguments)
{
    return QStringList{QStringLiteral(TESKEL_LEXICON), u"build"_s} + words(arguments);
}

QByteArray manyEntries(int count)
{
    QByteArray tsv;
    for (int i = 0; i < count; ++i)
        tsv += QByteArray::number(qint64{i} * 7919) + '\t' +
               QByteArray::number(qint64{i} * 104729) + '\n';
    return tsv;
}

} // namespace

void TestProgramTerminal::initTestCase()
{
    QVERIFY(writeFile(_program.path("small.tsv"), "a\tx\nb\ty\n"));
    QVERIFY(writeFile(_program.path("large.tsv"), manyEntries(400000)));
    _filesBefore = files();
}

void TestProgramTerminal::progressIsShownAndTakenAway()
{
    PseudoTerminal terminal;
    QVERIFY(terminal.start(build({"small.tsv", "-o", "out.PDB"}), _program.directory()));
    QCOMPARE(terminal.finish(), 0);
    QVERIFY(QFile::remove(_program.path("out.PDB")));
    const QByteArray shown = terminal.shown();
    const QByteArray begin = QByteArray(clearedLine) + "reading" + clearedLine + "sorting" +
                             clearedLine + "packing" + clearedLine + "checking" + clearedLine;
    QCOMPARE(shown.left(begin.size()), begin);
    QVERIFY2(shown.sliced(begin.size()).startsWith("2 entries read, "), shown.constData());
    QCOMPARE(shown.lastIndexOf(clearedLine), begin.size() - 4);
}

void TestProgramTerminal::quietBuildShowsNothing()
{
    PseudoTerminal terminal;
    QVERIFY(terminal.start(build({"small.tsv", "-o", "out.PDB", "-q"}), _program.directory()));
    QCOMPARE(terminal.finish(), 0);
    QVERIFY(QFile::remove(_program.path("out.PDB")));
    QCOMPARE(terminal.shown(), QByteArray());
}

void TestProgramTerminal::dumbTerminalGetsNoProgress()
{
    PseudoTerminal terminal;
    QVERIFY(terminal.start(build({"small.tsv", "-o", "out.PDB"}), _program.directory(), "dumb"));
    QCOMPARE(terminal.finish(), 0);
    QVERIFY(QFile::remove(_program.path("out.PDB")));
    QVERIFY(!terminal.shown().contains('\x1B'));
}

void TestProgramTerminal::pipeGetsNoProgress()
{
    const ProgramResult result = _program.run(words({"build", "small.tsv", "-o", "out.PDB"}));
    QCOMPARE(result.code, 0);
    QVERIFY(QFile::remove(_program.path("out.PDB")));
    QVERIFY(result.err.startsWith("2 entries read, "));
    QVERIFY(!result.err.contains('\r'));
    QVERIFY(!result.err.contains('\x1B'));
}

void TestProgramTerminal::interruptEndsABuild_data()
{
    QTest::addColumn<QString>("source");
    QTest::addColumn<QByteArray>("phase");
    // The terminal itself is the source, and nobody types its end.
    QTest::newRow("while it reads") << u"-"_s << QByteArray("reading");
    QTest::newRow("while it packs") << u"large.tsv"_s << QByteArray("packing");
}

void TestProgramTerminal::interruptEndsABuild()
{
    QFETCH(QString, source);
    QFETCH(QByteArray, phase);
    PseudoTerminal terminal;
    QVERIFY(terminal.start(build({"-o", "out.PDB"}) + QStringList{source}, _program.directory()));
    QVERIFY2(terminal.waitFor(phase), terminal.shown().constData());
    terminal.type(interruptKey);
    const int status = terminal.finish();
    QVERIFY2(WIFSIGNALED(status), "the build was too quick for the test");
    QCOMPARE(WTERMSIG(status), SIGINT);
    QCOMPARE(files(), _filesBefore);
}

void TestProgramTerminal::shellsSeeTheSignalInTheExitCode_data()
{
    QTest::addColumn<QString>("signal");
    QTest::addColumn<int>("code");
    QTest::newRow("SIGINT") << u"INT"_s << 130;
    QTest::newRow("SIGTERM") << u"TERM"_s << 143;
}

// A helper of the shell sends it as soon as the unfinished file is there, which needs no name.
void TestProgramTerminal::shellsSeeTheSignalInTheExitCode()
{
    QFETCH(QString, signal);
    QFETCH(int, code);
    QProcess shell;
    shell.setWorkingDirectory(_program.directory());
    shell.start(
        u"sh"_s,
        {u"-c"_s,
         u"trap : INT; "
         "(while [ ! -s number ]; do sleep 0.01; done; read -r number <number; rm number; "
         "while ! ls -l \"/proc/$number/fd\" | grep -q \"$(pwd -P)/\\(#\\|[.]out.PDB.teskel-\\)\"; "
         "do sleep 0.01; done; kill -\"$1\" \"$number\") 2>/dev/null & "
         "sh -c 'echo $$ >number; exec \"$0\" build large.tsv -o out.PDB' \"$0\"; echo $?"_s,
         QStringLiteral(TESKEL_LEXICON), signal});
    QVERIFY(shell.waitForFinished(-1));
    const QByteArray out = shell.readAllStandardOutput();
    QVERIFY2(out.endsWith(QByteArray::number(code) + '\n'), out.constData());
    QCOMPARE(files(), _filesBefore);
}

QTEST_GUILESS_MAIN(TestProgramTerminal)
#include "test_program_terminal.moc"
