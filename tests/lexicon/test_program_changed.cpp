// SPDX-License-Identifier: MIT
#include "tests/lexicon/lexiconprogram.h"
#include "tests/support/palmwriter.h"
#include "tests/support/stardictwriter.h"

#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QProcess>
#include <QTest>

#include <algorithm>
#include <csignal>

#include <fcntl.h>
#include <sys/ioctl.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

using namespace teskel::test;

/// Files that change while a command reads them.
class TestProgramChanged : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void sourceThatChangesEndsTheBuild_data();
    void sourceThatChangesEndsTheBuild();
    void sourceThatStaysIsBuilt();
    void lexiconThatChangesIsAnError_data();
    void lexiconThatChangesIsAnError();
    void lexiconThatChangesBetweenWordsIsAnError_data();
    void lexiconThatChangesBetweenWordsIsAnError();
    void lexiconThatChangesBeforeItIsOpenedIsAnError_data();
    void lexiconThatChangesBeforeItIsOpenedIsAnError();

private:
    bool change(const QString& name, const QByteArray& how) const;

    LexiconProgram _program;
};

namespace
{

constexpr const char* kept = "kept";

/// Where the descriptors of a process lead.
QList<QByteArray> openFiles(const QProcess& process)
{
    const QDir open(u"/proc/%1/fd"_s.arg(process.processId()));
    const auto leadsTo = [&open](const QString& name) {
        QByteArray target(4096, '\0');
        const auto length =
            ::readlink(QFile::encodeName(open.filePath(name)).constData(), target.data(), 4096);
        return target.left(std::max<qsizetype>(length, 0));
    };
    QList<QByteArray> files;
    for (const QString& name : open.entryList(QDir::AllEntries | QDir::System))
        files += leadsTo(name);
    return files;
}

/// Whether the process has opened its standard input a second time, as it does to read a source
/// from it.
bool readsStandardInput(const QProcess& process)
{
    const QByteArray input =
        QFile::encodeName(QFile::symLinkTarget(u"/proc/%1/fd/0"_s.arg(process.processId())));
    const QByteArray name = input.mid(input.lastIndexOf('/') + 1); // of a pipe
    return !input.isEmpty() && openFiles(process).count(name) > 1;
}

} // namespace

void TestProgramChanged::init()
{
    QVERIFY(writeFile(_program.path("a.tsv"), "house\tHaus\nmouse\tMaus\n"));
    QVERIFY(writeFile(_program.path("t.tei"),
                      "<TEI><text><entry><form><orth>house</orth></form></entry></text></TEI>\n"));
    QVERIFY(writeFile(_program.path("d.index"), "house\tA\tL\nmouse\tA\tL\n"));
    QVERIFY(writeFile(_program.path("d.dict"), "house\nHaus\n"));
    QVERIFY(StarDictWriter()
                .add("house", "Haus")
                .addAlternative("home")
                .add("mouse", "Maus")
                .write(_program.path("s")));
    QFile::remove(_program.path("out.PDB"));
    // The clock of a file system may stand still between a file's making and its change.
    QDir directory(_program.directory());
    for (const QString& name : directory.entryList(QDir::Files)) {
        QFile file(directory.filePath(name));
        QVERIFY(file.open(QIODevice::ReadWrite));
        QVERIFY(file.setFileTime(QDateTime(QDate(2020, 1, 1), QTime(0, 0)),
                                 QFileDevice::FileModificationTime));
    }
}

bool TestProgramChanged::change(const QString& name, const QByteArray& how) const
{
    const QByteArray path = name.toUtf8();
    const QByteArray content = _program.bytesOf(path.constData());
    const QString file = _program.path(path.constData());
    if (how == "truncated")
        return QFile::resize(file, content.size() / 2);
    if (how == "emptied")
        return QFile::resize(file, 0);
    if (how == "appended to")
        return writeFile(file, content + content);
    if (how.startsWith("written again")) { // in place, so that nobody meets the file half written
        QFile again(file);
        const QDateTime old = QFileInfo(file).lastModified();
        if (!again.open(QIODevice::ReadWrite) || again.write(content) != content.size() ||
            !again.flush())
            return false;
        return how == "written again" || again.setFileTime(old, QFileDevice::FileModificationTime);
    }
    if (how == "removed")
        return QFile::remove(file);
    return how == kept || (writeFile(file + u".new"_s, content) && QFile::remove(file) &&
                           QFile::rename(file + u".new"_s, file)); // replaced
}

void TestProgramChanged::sourceThatChangesEndsTheBuild_data()
{
    QTest::addColumn<QStringList>("sources"); // "-" gives the time for the change
    QTest::addColumn<QString>("file");
    QTest::addColumn<QByteArray>("how");
    const auto add = [](const char* source, const char* file) {
        for (const char* how : {"truncated", "emptied", "appended to", "written again",
                                "written again with its old time", "removed", "replaced"}) {
            QTest::addRow("%s after it was read, %s", file, how)
                << words({source, "-"}) << QString::fromLatin1(file) << QByteArray(how);
            QTest::addRow("%s before it is read, %s", file, how)
                << words({"-", source}) << QString::fromLatin1(file) << QByteArray(how);
        }
    };
    add("a.tsv", "a.tsv");
    add("t.tei", "t.tei");
    for (const char* file : {"d.index", "d.dict"})
        add("d.index", file);
    for (const char* file : {"s.ifo", "s.idx", "s.dict", "s.syn"})
        add("s.ifo", file);
}

void TestProgramChanged::sourceThatChangesEndsTheBuild()
{
    QFETCH(QStringList, sources);
    QFETCH(QString, file);
    QFETCH(QByteArray, how);
    QProcess process;
    process.setWorkingDirectory(_program.directory());
    process.start(QStringLiteral(TESKEL_LEXICON), words({"build", "-o", "out.PDB"}) + sources);
    QTRY_VERIFY(readsStandardInput(process));
    QVERIFY(change(file, how));
    process.write("cat\tKatze\n");
    process.closeWriteChannel();
    QVERIFY(process.waitForFinished(-1));
    // What was read may have been worth warnings, too.
    const QString err = QString::fromUtf8(process.readAllStandardError());
    const QString sentence = u"teskel-lexicon: %1 was changed while it was read\n"_s.arg(file);
    QVERIFY2(err.endsWith(sentence) && err.count(u"teskel-lexicon: "_s) == 1, qPrintable(err));
    QCOMPARE(process.exitCode(), 3);
    QVERIFY(!QFile::exists(_program.path("out.PDB")));
}

void TestProgramChanged::sourceThatStaysIsBuilt()
{
    QCOMPARE(_program
                 .run(words({"build", "a.tsv", "t.tei", "d.index", "s.ifo", "-o", "out.PDB",
                             "--reverse", "reverse.PDB"}))
                 .code,
             0);
}

void TestProgramChanged::lexiconThatChangesIsAnError_data()
{
    QTest::addColumn<QString>("command");
    QTest::addColumn<QByteArray>("how");
    QTest::addColumn<int>("code");
    for (const char* command : {"list large.PDB", "export large.PDB", "diff large.PDB small.PDB",
                                "diff small.PDB large.PDB"}) {
        for (const char* how : {"written again", "written again with its old time", "replaced"})
            QTest::addRow("%s, %s", command, how)
                << QString::fromLatin1(command) << QByteArray(how) << 3;
        const int code = QByteArray(command).startsWith("diff") ? 1 : 0;
        QTest::addRow("%s, kept", command)
            << QString::fromLatin1(command) << QByteArray(kept) << code;
    }
}

/// A command that prints more than a pipe holds waits in the middle while nobody takes it.
void TestProgramChanged::lexiconThatChangesIsAnError()
{
    QFETCH(QString, command);
    QFETCH(QByteArray, how);
    QFETCH(int, code);
    QByteArray tsv;
    for (int i = 0; i < 50000; ++i)
        tsv += "word" + QByteArray::number(i) + "\tarticle\n";
    QCOMPARE(_program.run(words({"build", "-", "-o", "large.PDB"}), tsv).code, 0);
    QCOMPARE(_program.run(words({"build", "a.tsv", "-o", "small.PDB"})).code, 0);

    int ends[2] = {};
    QCOMPARE(::pipe2(ends, O_CLOEXEC), 0);
    QProcess process;
    process.setWorkingDirectory(_program.directory());
    process.setChildProcessModifier([&ends] { ::dup2(ends[1], STDOUT_FILENO); });
    process.start(QStringLiteral(TESKEL_LEXICON), command.split(u' '));
    QVERIFY(process.waitForStarted());
    ::close(ends[1]);
    const auto waiting = [&ends] {
        int bytes = 0;
        return ::ioctl(ends[0], FIONREAD, &bytes) == 0 ? bytes : 0;
    };
    QTRY_VERIFY(waiting() > 0);
    QVERIFY(change(u"large.PDB"_s, how));
    QByteArray part(1 << 16, '\0');
    while (::read(ends[0], part.data(), static_cast<size_t>(part.size())) > 0) {
    }
    ::close(ends[0]);
    QVERIFY(process.waitForFinished(-1));
    QCOMPARE(process.readAllStandardError(),
             how == kept ? QByteArray()
                         : QByteArray("teskel-lexicon: large.PDB was changed while it was read\n"));
    QCOMPARE(process.exitCode(), code);
}

void TestProgramChanged::lexiconThatChangesBetweenWordsIsAnError_data()
{
    QTest::addColumn<QStringList>("options");
    QTest::addColumn<QByteArray>("how");
    QTest::addColumn<QByteArray>("word");
    for (const char* word : {"house", "missing"}) {
        for (const char* how : {"truncated", "emptied", "appended to", "written again",
                                "written again with its old time", "removed", "replaced"}) {
            QTest::addRow("%s, %s", word, how)
                << QStringList() << QByteArray(how) << QByteArray(word);
            QTest::addRow("%s, %s, as JSON", word, how)
                << words({"--json"}) << QByteArray(how) << QByteArray(word);
        }
    }
}

/// "find" may wait for its words for long.
void TestProgramChanged::lexiconThatChangesBetweenWordsIsAnError()
{
    QFETCH(QStringList, options);
    QFETCH(QByteArray, how);
    QFETCH(QByteArray, word);
    QCOMPARE(_program.run(words({"build", "a.tsv", "-o", "small.PDB"})).code, 0);
    QProcess process;
    process.setWorkingDirectory(_program.directory());
    process.start(QStringLiteral(TESKEL_LEXICON), words({"find", "small.PDB", "-"}) + options);
    const QByteArray path =
        QFile::encodeName(QFileInfo(_program.path("small.PDB")).canonicalFilePath());
    QTRY_VERIFY(openFiles(process).contains(path));
    QVERIFY(change(u"small.PDB"_s, how));
    process.write(word + '\n' + word + '\n');
    process.closeWriteChannel();
    QVERIFY(process.waitForFinished(-1));
    QCOMPARE(process.readAllStandardError(),
             QByteArray("teskel-lexicon: small.PDB was changed while it was read\n"));
    QCOMPARE(process.exitCode(), 3);
    if (!options.isEmpty())
        QCOMPARE(process.readAllStandardOutput(), QByteArray());
}

void TestProgramChanged::lexiconThatChangesBeforeItIsOpenedIsAnError_data()
{
    QTest::addColumn<QString>("command");
    for (const char* command :
         {"info small.PDB", "list small.PDB", "find small.PDB house", "export small.PDB",
          "export small.PDB -o out.tsv", "diff small.PDB other.PDB", "diff other.PDB small.PDB",
          "verify small.PDB"})
        QTest::newRow(command) << QString::fromLatin1(command);
}

/// A lease holds the program between its look at the file and its reading.
void TestProgramChanged::lexiconThatChangesBeforeItIsOpenedIsAnError()
{
    QFETCH(QString, command);
    QCOMPARE(_program.run(words({"build", "a.tsv", "-o", "small.PDB"})).code, 0);
    QCOMPARE(_program.run(words({"build", "a.tsv", "-o", "other.PDB"})).code, 0);
    const int file =
        ::open(QFile::encodeName(_program.path("small.PDB")).constData(), O_RDWR | O_CLOEXEC);
    QVERIFY(file >= 0);
    (void)std::signal(SIGIO, SIG_IGN); // how the lease's holder is told
    if (::fcntl(file, F_SETLEASE, F_WRLCK) != 0) {
        ::close(file);
        QSKIP("this file system has no leases");
    }
    QProcess process;
    process.setWorkingDirectory(_program.directory());
    process.start(QStringLiteral(TESKEL_LEXICON), command.split(u' '));
    QTRY_VERIFY(::fcntl(file, F_GETLEASE) != F_WRLCK);
    QCOMPARE(::ftruncate(file, 100), 0);
    QCOMPARE(::fcntl(file, F_SETLEASE, F_UNLCK), 0);
    ::close(file);
    QVERIFY(process.waitForFinished(-1));
    QCOMPARE(process.readAllStandardError(),
             QByteArray("teskel-lexicon: small.PDB was changed while it was read\n"));
    QCOMPARE(process.exitCode(), 3);
    QCOMPARE(process.readAllStandardOutput(), QByteArray());
}

QTEST_GUILESS_MAIN(TestProgramChanged)
#include "test_program_changed.moc"
