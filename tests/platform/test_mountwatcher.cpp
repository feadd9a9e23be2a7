// SPDX-License-Identifier: MIT
#include "platform/qcopchannel.h"
#include "platform/storage/mountwatcher.h"

#include <QSignalSpy>
#include <QTemporaryDir>
#include <QtTest>

#include <sched.h>
#include <sys/mount.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace
{

// Mounts of the test are seen by nobody else. Must run while the process has one thread.
bool enterOwnMountTable()
{
    const QByteArray map = QByteArray("0 ") + QByteArray::number(::getuid()) + " 1\n";
    if (::unshare(CLONE_NEWNS) != 0) {
        if (::unshare(CLONE_NEWUSER | CLONE_NEWNS) != 0)
            return false;
        QFile file(u"/proc/self/uid_map"_s);
        if (!file.open(QIODevice::WriteOnly | QIODevice::Unbuffered))
            return false;
        file.write(map);
    }
    return ::mount("none", "/", nullptr, MS_REC | MS_PRIVATE, nullptr) == 0;
}

bool ownMountTable = false;

} // namespace

class MountWatcherTest : public QObject
{
    Q_OBJECT

private slots:
    void eachMountAndEachUnmountSendsOneMessage();
    void severalStepsOfOneChangeAreOneMessage();
    void endlessMountingIsReportedMeanwhile();
    void withoutATableThereAreNoMessages();
    void ordinaryFileIsNoEndlessSource();

private:
    QTemporaryDir _directory;
};

void MountWatcherTest::eachMountAndEachUnmountSendsOneMessage()
{
    if (!ownMountTable)
        QSKIP("no right to mount in a private mount namespace");
    const QByteArray point = _directory.path().toUtf8();
    QCopChannel channel("QPE/Card");
    QSignalSpy received(&channel, &QCopChannel::received);
    const teskel::MountWatcher watcher(u"/proc/self/mountinfo"_s);

    for (int count = 1; count <= 6; ++count) {
        if (count % 2 == 1)
            QCOMPARE(::mount("card", point.constData(), "tmpfs", 0, nullptr), 0);
        else
            QCOMPARE(::umount2(point.constData(), 0), 0);
        QVERIFY(received.wait());
        QCOMPARE(received.count(), count);
        QCOMPARE(received.constLast()[0].toByteArray(), QByteArray("mtabChanged()"));
        // A second message for the same change would come within the next settling time.
        QVERIFY(!received.wait(400));
    }
}

void MountWatcherTest::severalStepsOfOneChangeAreOneMessage()
{
    if (!ownMountTable)
        QSKIP("no right to mount in a private mount namespace");
    const QByteArray point = _directory.path().toUtf8();
    QCopChannel channel("QPE/Card");
    QSignalSpy received(&channel, &QCopChannel::received);
    const teskel::MountWatcher watcher(u"/proc/self/mountinfo"_s);
    QCOMPARE(::mount("card", point.constData(), "tmpfs", 0, nullptr), 0);
    QCOMPARE(::mount("card", point.constData(), "tmpfs", MS_REMOUNT | MS_RDONLY, nullptr), 0);
    QCOMPARE(::umount2(point.constData(), MNT_DETACH), 0);
    QVERIFY(received.wait());
    QVERIFY(!received.wait(400));
    QCOMPARE(received.count(), 1);
}

void MountWatcherTest::endlessMountingIsReportedMeanwhile()
{
    if (!ownMountTable)
        QSKIP("no right to mount in a private mount namespace");
    const QByteArray point = _directory.path().toUtf8();
    QCopChannel channel("QPE/Card");
    QSignalSpy received(&channel, &QCopChannel::received);
    const teskel::MountWatcher watcher(u"/proc/self/mountinfo"_s);
    bool mounted = false;
    QTimer changes;
    connect(&changes, &QTimer::timeout, this, [&] {
        const int failed = mounted ? ::umount2(point.constData(), 0)
                                   : ::mount("card", point.constData(), "tmpfs", 0, nullptr);
        QCOMPARE(failed, 0);
        mounted = !mounted;
    });
    changes.start(50);
    QVERIFY(received.wait(10'000));
    QVERIFY(received.wait(10'000));
    changes.stop();
    // The last changes are not forgotten.
    QVERIFY(received.wait());
    if (mounted)
        QCOMPARE(::umount2(point.constData(), 0), 0);
}

void MountWatcherTest::withoutATableThereAreNoMessages()
{
    QTest::failOnWarning(QRegularExpression(u".*"_s));
    QCopChannel channel("QPE/Card");
    QSignalSpy received(&channel, &QCopChannel::received);
    const teskel::MountWatcher watcher(u"/nowhere/mountinfo"_s);
    QVERIFY(!received.wait(400));
}

void MountWatcherTest::ordinaryFileIsNoEndlessSource()
{
    QTest::failOnWarning(QRegularExpression(u".*"_s));
    QFile file(_directory.filePath(u"mountinfo"_s));
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write("1 2 8:16 / /card rw - vfat /dev/sdb rw\n");
    file.close();
    QCopChannel channel("QPE/Card");
    QSignalSpy received(&channel, &QCopChannel::received);
    const teskel::MountWatcher watcher(file.fileName());
    QVERIFY(!received.wait(400));
}

int main(int argc, char** argv)
{
    ownMountTable = enterOwnMountTable();
    const QCoreApplication application(argc, argv);
    MountWatcherTest test;
    return QTest::qExec(&test, argc, argv);
}

#include "test_mountwatcher.moc"
