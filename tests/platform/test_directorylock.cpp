// SPDX-License-Identifier: MIT
#include "platform/config.h"
#include "platform/directorylock.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>

#include <memory>
#include <thread>

#include <sys/stat.h>

using namespace Qt::StringLiterals;

using namespace std::chrono_literals;

using teskel::DirectoryLock;

/// Settings that two processes change at the same time.
class DirectoryLockTest : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void oneAtATime();
    void waitsForTheOther();
    void missingDirectoryIsNotLocked();
    void leavesNothingBehind();
    void settingsAreLockedFromReadingToWriting();
    void settingsAreWrittenWhenTheOtherDoesNotLetGo();
    void settingsAreReadWhereNothingCanBeWritten();

private:
    QString place() const { return _directory->path(); }
    QString fileName() const { return _directory->filePath(u"a.conf"_s); }

    std::unique_ptr<QTemporaryDir> _directory;
};

void DirectoryLockTest::init()
{
    QTest::failOnWarning(QRegularExpression(u".*"_s));
    _directory = std::make_unique<QTemporaryDir>();
}

void DirectoryLockTest::oneAtATime()
{
    {
        const DirectoryLock lock(place());
        QVERIFY(lock.isHeld());
        QVERIFY(!DirectoryLock(place(), 0ms).isHeld());
        const QTemporaryDir other;
        QVERIFY(DirectoryLock(other.path(), 0ms).isHeld());
    }
    QVERIFY(DirectoryLock(place(), 0ms).isHeld());
}

void DirectoryLockTest::waitsForTheOther()
{
    auto lock = std::make_unique<DirectoryLock>(place());
    bool isHeld = false;
    std::thread other([&] { isHeld = DirectoryLock(place(), 1h).isHeld(); });
    lock.reset();
    other.join();
    QVERIFY(isHeld);
}

void DirectoryLockTest::missingDirectoryIsNotLocked()
{
    QVERIFY(!DirectoryLock(place() + u"/none"_s, 1h).isHeld());
    QVERIFY(!DirectoryLock(QString(), 1h).isHeld());
}

void DirectoryLockTest::leavesNothingBehind()
{
    {
        Config config(fileName(), Config::File);
        config.setGroup(u"g"_s);
    }
    QCOMPARE(QDir(place()).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot),
             QStringList(u"a.conf"_s));
}

void DirectoryLockTest::settingsAreLockedFromReadingToWriting()
{
    {
        Config config(fileName(), Config::File);
        QVERIFY(!DirectoryLock(place(), 0ms).isHeld());
        config.setGroup(u"g"_s);
        QVERIFY(config.write());
        QVERIFY(!DirectoryLock(place(), 0ms).isHeld());
    }
    QVERIFY(DirectoryLock(place(), 0ms).isHeld());
}

void DirectoryLockTest::settingsAreWrittenWhenTheOtherDoesNotLetGo()
{
    const DirectoryLock lock(place());
    Config config(fileName(), Config::File);
    config.setGroup(u"g"_s);
    QVERIFY(config.write());
}

void DirectoryLockTest::settingsAreReadWhereNothingCanBeWritten()
{
    QFile file(fileName());
    QVERIFY(file.open(QIODevice::WriteOnly));
    QCOMPARE(file.write("[g]\nk = v\n"), 10);
    file.close();
    QCOMPARE(::chmod(QFile::encodeName(place()).constData(), 0500), 0);
    {
        Config config(fileName(), Config::File);
        QVERIFY(!DirectoryLock(place(), 0ms).isHeld());
        config.setGroup(u"g"_s);
        QCOMPARE(config.readEntry(u"k"_s), u"v"_s);
    }
    QCOMPARE(::chmod(QFile::encodeName(place()).constData(), 0700), 0);
}

QTEST_GUILESS_MAIN(DirectoryLockTest)
#include "test_directorylock.moc"
