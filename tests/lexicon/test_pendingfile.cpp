// SPDX-License-Identifier: MIT
#include "lexicon/file/leftovers.h"
#include "lexicon/file/pendingfile.h"
#include "tests/support/fulldisk.h"
#include "tests/support/palmwriter.h"

#include <QDir>
#include <QTemporaryDir>
#include <QTest>

#include <csignal>
#include <functional>

#include <sys/mount.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

using teskel::PendingFile;
using teskel::test::writeFile;

class TestPendingFile : public QObject
{
    Q_OBJECT

private slots:
    void hasNotItsTargetsNameUntilCommitted();
    void isGoneWhenTheProgramIsKilled();
    void leavesNothingWhenNotCommitted();
    void replacesTheTarget();
    void showsOthersWhatWasFlushed();
    void saysWhyItCannotBeCreated();
    void saysWhyItCannotBeCommitted();
    void replacesNoPipe();
    void severalAreWrittenAtATime();
    void signalRemovesAllThatAreUnfinished_data();
    void signalRemovesAllThatAreUnfinished();
    void standsBesideItsTargetWhereItNeedsAName();
    void removesWhatAKilledProgramLeft_data();
    void removesWhatAKilledProgramLeft();
};

namespace
{

QStringList filesIn(const QTemporaryDir& directory)
{
    return QDir(directory.path()).entryList(QDir::Files | QDir::Hidden);
}

std::string pathIn(const QTemporaryDir& directory, const char* name)
{
    return directory.filePath(QString::fromLatin1(name)).toStdString();
}

/// What became of a process that does `work`: its exit code, or the signal that ended it below 0.
int endOf(const std::function<void()>& work)
{
    const pid_t child = ::fork();
    if (child == 0) {
        work();
        ::_exit(0);
    }
    int status = 0;
    if (::waitpid(child, &status, 0) != child)
        return -1;
    return WIFSIGNALED(status) ? -WTERMSIG(status) : WEXITSTATUS(status);
}

/// Takes /proc away from this process alone.
bool hideProcesses()
{
    return teskel::test::FullDisk::enterOwnMounts() &&
           ::mount("none", "/proc", "tmpfs", 0, nullptr) == 0;
}

} // namespace

void TestPendingFile::hasNotItsTargetsNameUntilCommitted()
{
    const QTemporaryDir directory;
    PendingFile file(pathIn(directory, "a.PDB"));
    QVERIFY(file.write("new"));
    QVERIFY(!filesIn(directory).contains(u"a.PDB"_s));
    std::string error;
    QVERIFY(file.commit(error));
    QCOMPARE(filesIn(directory), QStringList{u"a.PDB"_s});
}

void TestPendingFile::leavesNothingWhenNotCommitted()
{
    const QTemporaryDir directory;
    {
        PendingFile file(pathIn(directory, "a.PDB"));
        QVERIFY(file.write("new"));
    }
    QVERIFY(filesIn(directory).isEmpty());
}

void TestPendingFile::replacesTheTarget()
{
    const QTemporaryDir directory;
    const QString target = directory.filePath(u"a.PDB"_s);
    QVERIFY(writeFile(target, "old"));
    PendingFile file(target.toStdString());
    QVERIFY(file.write("new"));
    std::string error;
    QVERIFY(file.commit(error));
    QFile result(target);
    QVERIFY(result.open(QIODevice::ReadOnly));
    QCOMPARE(result.readAll(), QByteArray("new"));
}

void TestPendingFile::showsOthersWhatWasFlushed()
{
    const QTemporaryDir directory;
    PendingFile file(pathIn(directory, "a.PDB"));
    QVERIFY(file.write("first, second"));
    file.seek(0);
    QVERIFY(file.write("FIRST"));
    std::string error;
    QVERIFY(file.flush(error));
    QFile pending(QString::fromStdString(file.path()));
    QVERIFY(pending.open(QIODevice::ReadOnly));
    QCOMPARE(pending.readAll(), QByteArray("FIRST, second"));
}

void TestPendingFile::saysWhyItCannotBeCreated()
{
    const QTemporaryDir directory;
    const std::string target = pathIn(directory, "missing/a.PDB");
    PendingFile file(target);
    QVERIFY(!file.write("new"));
    const std::string reason = "cannot write " + target + ": No such file or directory";
    std::string error;
    QVERIFY(!file.flush(error));
    QCOMPARE(error, reason);
    error.clear();
    QVERIFY(!file.commit(error));
    QCOMPARE(error, reason);
}

void TestPendingFile::saysWhyItCannotBeCommitted()
{
    const QTemporaryDir directory;
    QVERIFY(QDir(directory.path()).mkdir(u"a.PDB"_s));
    const std::string target = pathIn(directory, "a.PDB");
    std::string error;
    {
        PendingFile file(target);
        QVERIFY(file.write("new"));
        QVERIFY(!file.commit(error));
    }
    QCOMPARE(error, "cannot write " + target + ": Is a directory");
    QVERIFY(filesIn(directory).isEmpty());
}

void TestPendingFile::replacesNoPipe()
{
    const QTemporaryDir directory;
    const std::string target = pathIn(directory, "a.PDB");
    QCOMPARE(::mkfifo(target.c_str(), 0600), 0);
    std::string error;
    {
        PendingFile file(target);
        QVERIFY(file.write("new"));
        QVERIFY(!file.commit(error));
    }
    QCOMPARE(error, "cannot write " + target + ": it is no regular file");
    struct stat status = {};
    QCOMPARE(::stat(target.c_str(), &status), 0);
    QVERIFY(S_ISFIFO(status.st_mode));
    QVERIFY(filesIn(directory).isEmpty());
}

void TestPendingFile::severalAreWrittenAtATime()
{
    const QTemporaryDir directory;
    std::string error;
    {
        PendingFile first(pathIn(directory, "a"));
        PendingFile second(pathIn(directory, "b"));
        PendingFile third(pathIn(directory, "c"));
        QVERIFY(first.write("1") && second.write("2") && third.write("3"));
        QVERIFY(first.commit(error) && third.commit(error));
    }
    QCOMPARE(filesIn(directory), (QStringList{u"a"_s, u"c"_s}));
}

void TestPendingFile::isGoneWhenTheProgramIsKilled()
{
    const QTemporaryDir directory;
    const int end = endOf([&directory] {
        PendingFile file(pathIn(directory, "a"));
        (void)file.write("new");
        std::string error;
        (void)file.flush(error);
        ::raise(SIGKILL);
    });
    QCOMPARE(end, -SIGKILL);
    // By the next one at the latest, where files must have names.
    const PendingFile next(pathIn(directory, "a"));
    QVERIFY(filesIn(directory).filter(u".part"_s).size() <= 1);
    QVERIFY(!filesIn(directory).contains(u"a"_s));
}

void TestPendingFile::signalRemovesAllThatAreUnfinished_data()
{
    QTest::addColumn<bool>("isNamed");
    QTest::newRow("without names") << false;
    QTest::newRow("with names") << true;
}

void TestPendingFile::signalRemovesAllThatAreUnfinished()
{
    QFETCH(bool, isNamed);
    const QTemporaryDir directory;
    const int end = endOf([&directory, isNamed] {
        if (isNamed && !hideProcesses())
            return;
        std::string error;
        PendingFile done(pathIn(directory, "done"));
        done.commit(error);
        const PendingFile first(pathIn(directory, "a"));
        const PendingFile second(pathIn(directory, "b"));
        if (isNamed == filesIn(directory).filter(u".part"_s).isEmpty())
            ::_exit(1);
        ::raise(SIGTERM);
    });
    if (isNamed && end == 0)
        QSKIP("this machine lets its users mount nothing, not even where they alone see it");
    QCOMPARE(end, -SIGTERM);
    QCOMPARE(filesIn(directory), QStringList{u"done"_s});
}

/// Without /proc a file cannot be given a name later.
void TestPendingFile::standsBesideItsTargetWhereItNeedsAName()
{
    const QTemporaryDir directory;
    const int end = endOf([&directory] {
        if (!hideProcesses())
            return;
        const QString target = directory.filePath(u"a"_s);
        PendingFile file(target.toStdString());
        std::string error;
        const bool isWritten = file.write("new") && file.flush(error);
        const bool isNamed =
            file.path() == target.toStdString() + ".part" + std::to_string(::getpid()) &&
            QFile(QString::fromStdString(file.path())).size() == 3;
        ::_exit(isWritten && isNamed && file.commit(error) ? 2 : 1);
    });
    if (end == 0)
        QSKIP("this machine lets its users mount nothing, not even where they alone see it");
    QCOMPARE(end, 2);
    QCOMPARE(filesIn(directory), QStringList{u"a"_s});
}

void TestPendingFile::removesWhatAKilledProgramLeft_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<bool>("isKept");
    const pid_t gone = ::fork();
    if (gone == 0)
        ::_exit(0);
    ::waitpid(gone, nullptr, 0);
    const auto row = [](const QString& name, bool isKept) {
        QTest::newRow(qPrintable(isKept ? name + u", kept"_s : name)) << name << isKept;
    };
    row(u"a.PDB.part%1"_s.arg(gone), false);
    row(u"a.PDB.part%1"_s.arg(::getppid()), true);
    row(u"a.PDB.part%1x"_s.arg(gone), true);
    row(u"a.PDB.part"_s, true);
    row(u"a.PDB.part-%1"_s.arg(gone), true);
    row(u"b.PDB.part%1"_s.arg(gone), true);
    row(u"a.PDB.partition"_s, true);
    // Another program's numbers may mean other processes: it holds its file.
    row(u"a.PDB.part%1 held"_s.arg(gone), true);
}

void TestPendingFile::removesWhatAKilledProgramLeft()
{
    QFETCH(QString, name);
    QFETCH(bool, isKept);
    const QTemporaryDir directory;
    const bool isHeld = name.endsWith(u" held"_s);
    name.remove(u" held"_s);
    QVERIFY(writeFile(directory.filePath(name), "half"));
    QFile file(directory.filePath(name));
    QVERIFY(file.open(QIODevice::ReadOnly));
    if (isHeld)
        QVERIFY(teskel::leftovers::hold(file.handle()));
    const PendingFile pending(pathIn(directory, "a.PDB"));
    QCOMPARE(filesIn(directory).contains(name), isKept);
}

QTEST_APPLESS_MAIN(TestPendingFile)
#include "test_pendingfile.moc"
