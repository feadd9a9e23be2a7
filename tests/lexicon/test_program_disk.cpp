// SPDX-License-Identifier: MIT
#include "tests/lexicon/lexiconprogram.h"
#include "tests/support/fulldisk.h"
#include "tests/support/palmwriter.h"

#include <QCoreApplication>
#include <QDir>
#include <QProcess>
#include <QTest>

#include <sys/stat.h>

using namespace Qt::StringLiterals;

using namespace teskel::test;

/// What the commands that write files do on a disk that takes no more.
class TestProgramDisk : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void fullDiskKeepsTheOldFile_data();
    void fullDiskKeepsTheOldFile();
    void limitedFileSizeKeepsTheOldFile_data();
    void limitedFileSizeKeepsTheOldFile();
    void whatIsNoFileIsNotReplaced_data();
    void whatIsNoFileIsNotReplaced();

private:
    void addCommands() const;

    LexiconProgram _program;
};

void TestProgramDisk::initTestCase()
{
    QByteArray tsv;
    for (int i = 0; i < 3000; ++i)
        tsv += "word" + QByteArray::number(i) + "\tarticle " + QByteArray::number(i * 7919) + '\n';
    QVERIFY(writeFile(_program.path("large.tsv"), tsv));
    QVERIFY(writeFile(_program.path("tiny.tsv"), "word\tarticle\n"));
    for (const char* name : {"large", "tiny"}) {
        const QByteArray lexicon = QByteArray(name) + ".PDB";
        QCOMPARE(_program
                     .run(words({"build", QByteArray(name + QByteArray(".tsv")).constData(), "-o",
                                 lexicon.constData()}))
                     .code,
                 0);
    }
}

void TestProgramDisk::addCommands() const
{
    QTest::addColumn<QString>("command"); // without its target
    QTest::addColumn<qint64>("left");     // bytes that can still be written
    for (const qint64 left : {0, 4096, 16384}) {
        QTest::addRow("build, %lld left", left) << u"build large.tsv"_s << left;
        QTest::addRow("export, %lld left", left) << u"export large.PDB"_s << left;
        QTest::addRow("repair, %lld left", left) << u"repair large.PDB"_s << left;
    }
    QTest::newRow("build less than a buffer") << u"build tiny.tsv"_s << qint64(0);
    QTest::newRow("export less than a buffer") << u"export tiny.PDB"_s << qint64(0);
}

void TestProgramDisk::fullDiskKeepsTheOldFile_data()
{
    addCommands();
}

void TestProgramDisk::fullDiskKeepsTheOldFile()
{
    const FullDisk disk;
    if (!disk.isMounted())
        QSKIP("this machine lets its users mount nothing, not even where they alone see it");
    QFETCH(QString, command);
    QFETCH(qint64, left);
    const QString target = disk.path(u"target"_s);
    QVERIFY(writeFile(target, "old"));
    QVERIFY(disk.fill(left));
    const ProgramResult result =
        _program.run(command.split(u' ') + QStringList{u"--force"_s, u"-o"_s, target});
    QCOMPARE(result.code, 3);
    QCOMPARE(QString::fromUtf8(result.err),
             u"teskel-lexicon: cannot write %1: No space left on device\n"_s.arg(target));
    QFile file(target);
    QVERIFY(file.open(QIODevice::ReadOnly));
    QCOMPARE(file.readAll(), QByteArray("old"));
    QCOMPARE(QDir(disk.path({})).entryList(QDir::Files | QDir::Hidden).size(), 2);
}

void TestProgramDisk::limitedFileSizeKeepsTheOldFile_data()
{
    addCommands();
}

void TestProgramDisk::limitedFileSizeKeepsTheOldFile()
{
    QFETCH(QString, command);
    QFETCH(qint64, left);
    QVERIFY(writeFile(_program.path("target"), "old"));
    QProcess process;
    limitFileSize(process, static_cast<quint64>(left), BeyondLimit::SignalKills);
    const ProgramResult result = _program.run(
        process, command.split(u' ') + QStringList{u"--force"_s, u"-o"_s, u"target"_s});
    QCOMPARE(result.code, 3);
    // The temporary file of a build is a file, too, and meets the limit first.
    const bool isTemporary =
        result.err.startsWith("teskel-lexicon: cannot write a temporary file in ");
    QVERIFY2(isTemporary ? !command.startsWith("export"_L1)
                         : result.err.startsWith("teskel-lexicon: cannot write target: "),
             result.err.constData());
    QVERIFY2(result.err.endsWith(": File too large\n"), result.err.constData());
    QCOMPARE(result.err.count('\n'), 1);
    QCOMPARE(_program.bytesOf("target"), QByteArray("old"));
    QVERIFY(QDir(_program.directory())
                .entryList({u"target.*"_s}, QDir::Files | QDir::Hidden)
                .isEmpty());
}

void TestProgramDisk::whatIsNoFileIsNotReplaced_data()
{
    QTest::addColumn<QString>("command");
    QTest::newRow("build") << u"build tiny.tsv"_s;
    QTest::newRow("export") << u"export tiny.PDB"_s;
}

/// As "-o /dev/null", which root could replace for everybody.
void TestProgramDisk::whatIsNoFileIsNotReplaced()
{
    QFETCH(QString, command);
    const QString pipe = _program.path("pipe");
    QFile::remove(pipe);
    QCOMPARE(::mkfifo(QFile::encodeName(pipe).constData(), 0600), 0);
    const ProgramResult result =
        _program.run(command.split(u' ') + QStringList{u"-o"_s, u"pipe"_s});
    QCOMPARE(result.code, 3);
    QCOMPARE(result.err, QByteArray("teskel-lexicon: cannot write pipe: it is no regular file\n"));
    struct stat status = {};
    QCOMPARE(::stat(QFile::encodeName(pipe).constData(), &status), 0);
    QVERIFY(S_ISFIFO(status.st_mode));
}

int main(int argc, char* argv[])
{
    (void)FullDisk::enterOwnMounts();
    QCoreApplication application(argc, argv);
    TestProgramDisk test;
    return QTest::qExec(&test, argc, argv);
}

#include "test_program_disk.moc"
