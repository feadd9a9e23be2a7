// SPDX-License-Identifier: MIT
#include "lexicon/file/filestates.h"
#include "lexicon/file/leftovers.h"
#include "lexicon/file/pendingfile.h"
#include "tests/support/fulldisk.h"
#include "tests/support/palmwriter.h"
#include "tests/support/systemcallfaults.h"

#include <QDir>
#include <QTemporaryDir>
#include <QTest>

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <functional>

#include <sys/file.h>
#include <sys/mount.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <sys/xattr.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace leftovers = teskel::leftovers;
using teskel::FileStates;
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
    void makesItsNameLast();
    void showsOthersWhatWasFlushed();
    void saysWhyItCannotBeCreated();
    void saysWhyItCannotBeCommitted();
    void replacesNoPipe();
    void severalAreWrittenAtATime();
    void signalRemovesAllThatAreUnfinished_data();
    void signalRemovesAllThatAreUnfinished();
    void standsBesideItsTargetWhereItNeedsAName();
    void whatAKilledProgramLeftIsRemoved_data();
    void whatAKilledProgramLeftIsRemoved();
    void whatIsStillWrittenStays();
    void leftoversHaveNamesThatFit_data();
    void leftoversHaveNamesThatFit();
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

/// Leaves a file with a name behind, as a program does that is killed.
void writeAndDie(const std::string& target)
{
    if (!hideProcesses())
        return;
    PendingFile file(target);
    std::string error;
    if (!file.write("half") || !file.flush(error))
        ::_exit(1);
    ::raise(SIGKILL);
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

/// The directory is written out when the file has its name, and need not be.
void TestPendingFile::makesItsNameLast()
{
    const QTemporaryDir directory;
    const auto commit = [&directory](qsizetype failing, bool& isCommitted) {
        PendingFile file(pathIn(directory, "a.PDB"));
        std::string error;
        const auto write = [&] { isCommitted = file.write("new") && file.commit(error); };
        return teskel::test::runWithFault(write, failing, EIO);
    };
    bool isCommitted = false;
    const auto calls = commit(-1, isCommitted);
    if (!calls)
        QSKIP("this machine lets nobody watch system calls");
    QVERIFY(isCommitted);
    const qsizetype synchronised = calls->lastIndexOf(SYS_fsync);
    const qsizetype renamed =
        std::max(calls->lastIndexOf(SYS_rename), // each its own on machines
                 std::max(calls->lastIndexOf(SYS_renameat), calls->lastIndexOf(SYS_renameat2)));
    QVERIFY(renamed >= 0);
    QVERIFY(synchronised > renamed);
    QCOMPARE(calls->count(SYS_fsync), 2);
    isCommitted = false;
    QVERIFY(QFile::remove(directory.filePath(u"a.PDB"_s)));
    QVERIFY(commit(synchronised, isCommitted));
    QVERIFY(isCommitted);
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
    // Asked to at the latest, where files must have names.
    leftovers::remove(pathIn(directory, "a"), {});
    QCOMPARE(filesIn(directory), QStringList());
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
        if (isNamed == filesIn(directory).filter(u".teskel-"_s).isEmpty())
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
            file.path().starts_with(pathIn(directory, ".a.teskel-") + std::to_string(::getpid())) &&
            QFile(QString::fromStdString(file.path())).size() == 3;
        ::_exit(isWritten && isNamed && file.commit(error) ? 2 : 1);
    });
    if (end == 0)
        QSKIP("this machine lets its users mount nothing, not even where they alone see it");
    QCOMPARE(end, 2);
    QCOMPARE(filesIn(directory), QStringList{u"a"_s});
}

void TestPendingFile::whatAKilledProgramLeftIsRemoved_data()
{
    QTest::addColumn<QByteArray>("what");
    QTest::addColumn<bool>("isKept");
    QTest::newRow("as it was left") << QByteArray() << false;
    QTest::newRow("by a link") << QByteArray("by a link") << false;
    for (const char* what : {"copied", "held", "read", "of another target", "renamed", "linked"})
        QTest::newRow(what) << QByteArray(what) << true;
    for (const char* name :
         {"a.PDB.part999999999", "a.PDB.part", ".a.PDB.teskel-999999999",
          ".a.PDB.teskel-999999999-", ".a.PDB.teskel-999999999-0123456789abcdef",
          ".a.PDB.teskel-999999999-0123456789abcdef0123456789abcdef", ".a.PDB.teskel-0-x"})
        QTest::newRow(name) << QByteArray(name) << true;
}

void TestPendingFile::whatAKilledProgramLeftIsRemoved()
{
    QFETCH(QByteArray, what);
    QFETCH(bool, isKept);
    const QTemporaryDir directory;
    const int end = endOf([&directory] { writeAndDie(pathIn(directory, "a.PDB")); });
    if (end == 0)
        QSKIP("this machine lets its users mount nothing, not even where they alone see it");
    QCOMPARE(end, -SIGKILL);
    QCOMPARE(filesIn(directory).size(), 1);
    QString left = filesIn(directory).constFirst();
    QFile file(directory.filePath(left));
    QVERIFY(file.open(QIODevice::ReadOnly));
    if (::getxattr(QFile::encodeName(file.fileName()).constData(), "user.teskel.unfinished",
                   nullptr, 0) < 0 &&
        what == "copied")
        QSKIP("this file system keeps no attributes");

    std::string target = pathIn(directory, "a.PDB");
    FileStates read;
    if (what == "copied") {
        const QByteArray bytes = file.readAll();
        QVERIFY(file.remove() && writeFile(file.fileName(), bytes));
    } else if (what == "by a link") {
        QVERIFY(QFile::link(u"a.PDB"_s, directory.filePath(u"link"_s)));
        target = pathIn(directory, "link");
    } else if (what == "held") {
        QCOMPARE(::flock(file.handle(), LOCK_EX | LOCK_NB), 0);
    } else if (what == "read") {
        read.add(file.fileName().toStdString());
    } else if (what == "of another target") {
        target = pathIn(directory, "b.PDB");
    } else if (what == "renamed") {
        left.replace(u"a.PDB"_s, u"b.PDB"_s);
        QVERIFY(file.rename(directory.filePath(left)));
        target = pathIn(directory, "b.PDB");
    } else if (what == "linked") {
        QVERIFY(::link(QFile::encodeName(file.fileName()).constData(),
                       pathIn(directory, "mine").c_str()) == 0);
    } else if (!what.isEmpty()) {
        left = QString::fromLatin1(what);
        QVERIFY(file.remove() && writeFile(directory.filePath(left), "mine"));
    }
    if (what != "held")
        file.close();
    leftovers::remove(target, read);
    QCOMPARE(filesIn(directory).contains(left), isKept);
}

void TestPendingFile::whatIsStillWrittenStays()
{
    const QTemporaryDir directory;
    const int end = endOf([&directory] {
        if (!hideProcesses())
            return;
        PendingFile file(pathIn(directory, "a.PDB"));
        leftovers::remove(pathIn(directory, "a.PDB"), {});
        std::string error;
        ::_exit(file.commit(error) ? 2 : 1);
    });
    if (end == 0)
        QSKIP("this machine lets its users mount nothing, not even where they alone see it");
    QCOMPARE(end, 2);
    // What is complete is nobody's leftover, whatever its name.
    QVERIFY(::getxattr(pathIn(directory, "a.PDB").c_str(), "user.teskel.unfinished", nullptr, 0) <
            0);
}

void TestPendingFile::leftoversHaveNamesThatFit_data()
{
    QTest::addColumn<QByteArray>("name");
    QTest::newRow("short") << QByteArray("a");
    QTest::newRow("longest") << QByteArray(255, 'a');
    QTest::newRow("longest of two bytes") << "a" + QByteArray("\xC3\xA4").repeated(127);
    QTest::newRow("longest of four bytes") << "abc" + QByteArray("\xF0\x9F\x98\x80").repeated(63);
}

void TestPendingFile::leftoversHaveNamesThatFit()
{
    QFETCH(QByteArray, name);
    const QTemporaryDir directory;
    const std::string target = directory.path().toStdString() + "/" + name.toStdString();
    const QByteArray path = QByteArray::fromStdString(leftovers::newPath(target));
    const QByteArray own = path.mid(path.lastIndexOf('/') + 1);
    QVERIFY(own.size() <= 255);
    QCOMPARE(QString::fromUtf8(own).toUtf8(), own);
    const int end = endOf([&target] { writeAndDie(target); });
    if (end == 0)
        QSKIP("this machine lets its users mount nothing, not even where they alone see it");
    QCOMPARE(filesIn(directory).size(), 1);
    leftovers::remove(target, {});
    QCOMPARE(filesIn(directory), QStringList());
}

QTEST_APPLESS_MAIN(TestPendingFile)
#include "test_pendingfile.moc"
