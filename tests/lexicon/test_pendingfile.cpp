// SPDX-License-Identifier: MIT
#include "lexicon/file/pendingfile.h"
#include "tests/support/palmwriter.h"

#include <QDir>
#include <QTemporaryDir>
#include <QTest>

#include <csignal>

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
    void standsBesideItsTargetUntilCommitted();
    void leavesNothingWhenNotCommitted();
    void replacesTheTarget();
    void showsOthersWhatWasFlushed();
    void saysWhyItCannotBeCreated();
    void saysWhyItCannotBeCommitted();
    void replacesNoPipe();
    void severalAreWrittenAtATime();
    void signalRemovesAllThatAreUnfinished();
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

} // namespace

void TestPendingFile::standsBesideItsTargetUntilCommitted()
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
        QCOMPARE(filesIn(directory).size(), 1);
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
        QCOMPARE(filesIn(directory).size(), 3);
        QVERIFY(first.commit(error) && third.commit(error));
    }
    QCOMPARE(filesIn(directory), (QStringList{u"a"_s, u"c"_s}));
}

void TestPendingFile::signalRemovesAllThatAreUnfinished()
{
    const QTemporaryDir directory;
    const pid_t child = ::fork();
    if (child == 0) {
        std::string error;
        PendingFile done(pathIn(directory, "done"));
        done.commit(error);
        const PendingFile first(pathIn(directory, "a"));
        const PendingFile second(pathIn(directory, "b"));
        ::raise(SIGTERM);
        ::_exit(0);
    }
    int status = 0;
    QCOMPARE(::waitpid(child, &status, 0), child);
    QVERIFY(WIFSIGNALED(status));
    QCOMPARE(WTERMSIG(status), SIGTERM);
    QCOMPARE(filesIn(directory), QStringList{u"done"_s});
}

QTEST_APPLESS_MAIN(TestPendingFile)
#include "test_pendingfile.moc"
