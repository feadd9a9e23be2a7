// SPDX-License-Identifier: MIT
#include "platform/qcopchannel.h"
#include "platform/storage/mountwatcher.h"

#include <QSignalSpy>
#include <QSocketNotifier>
#include <QTemporaryDir>
#include <QtTest>

#include <chrono>
#include <optional>

#include <sched.h>
#include <sys/mount.h>
#include <unistd.h>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

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

// A card that is mounted and unmounted, and the kernel's word that each change was announced.
class Card
{
public:
    Card()
    {
        if (_table.open(QIODevice::ReadOnly | QIODevice::Unbuffered))
            _notifier.emplace(_table.handle(), QSocketNotifier::Exception);
    }
    ~Card() { ::umount2(point(), MNT_DETACH); }
    Card(const Card&) = delete;
    Card& operator=(const Card&) = delete;

    bool isMounted() const { return _isMounted; }
    const QSocketNotifier* notifier() const { return &*_notifier; }
    // Mounts the card, or unmounts it; every watcher made before hears of it first.
    bool change()
    {
        _isMounted = !_isMounted;
        return _isMounted ? ::mount("card", point(), "tmpfs", 0, nullptr) == 0
                          : ::umount2(point(), 0) == 0;
    }
    bool changeAndWait()
    {
        QSignalSpy announced(&*_notifier, &QSocketNotifier::activated);
        return change() && QTest::qWaitFor([&announced] { return !announced.isEmpty(); });
    }

private:
    const char* point() const { return _point.constData(); }

    QTemporaryDir _directory;
    QByteArray _point = QFile::encodeName(_directory.path());
    QFile _table{u"/proc/self/mountinfo"_s};
    std::optional<QSocketNotifier> _notifier;
    bool _isMounted = false;
};

// What is sent on the channel of the cards.
class Listener : public QObject
{
public:
    Listener()
    {
        connect(&_channel, &QCopChannel::received, this,
                [this](const QByteArray& message) { messages.append(message); });
    }
    bool waitForMessages(qsizetype count)
    {
        return QTest::qWaitFor([this, count] { return messages.size() >= count; });
    }
    // Waits for a message of its own, which is sent when `watcher` must have sent what it has.
    bool waitForLastMessage(const teskel::MountWatcher& watcher)
    {
        QTimer::singleShot(2 * watcher.longestDelay() + 1ms, Qt::PreciseTimer, this,
                           [] { QCopChannel::send("QPE/Card", "last"); });
        return QTest::qWaitFor([this] { return messages.removeOne("last"); });
    }

    QByteArrayList messages;

private:
    QCopChannel _channel{"QPE/Card"};
};

const QString mountInfo = u"/proc/self/mountinfo"_s;

struct WatchedCard {
    WatchedCard(std::chrono::milliseconds settlingTime, std::chrono::milliseconds longestDelay)
    {
        watcher.setSettlingTime(settlingTime);
        watcher.setLongestDelay(longestDelay);
    }
    teskel::MountWatcher watcher{mountInfo};
    Card card;
    Listener listener;
};

} // namespace

class MountWatcherTest : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void gathersForAQuarterOfASecondAndAtMostForTwo();
    void eachMountAndEachUnmountSendsOneMessage();
    void severalStepsOfOneChangeAreOneMessage();
    void endlessMountingIsReportedMeanwhile();
    void fileThatIsNoMountTableSendsNothing_data();
    void fileThatIsNoMountTableSendsNothing();
};

void MountWatcherTest::init()
{
    QTest::failOnWarning(QRegularExpression(u".*"_s));
}

void MountWatcherTest::gathersForAQuarterOfASecondAndAtMostForTwo()
{
    const teskel::MountWatcher watcher(mountInfo);
    QVERIFY(watcher.settlingTime() == 250ms);
    QVERIFY(watcher.longestDelay() == 2s);
}

void MountWatcherTest::eachMountAndEachUnmountSendsOneMessage()
{
    if (!ownMountTable)
        QSKIP("no right to mount in a private mount namespace");
    WatchedCard watched(1ms, 10ms);
    auto& [watcher, card, listener] = watched;
    QByteArrayList expected;
    for (int count = 0; count < 6; ++count) {
        expected.append("mtabChanged()");
        QVERIFY(card.change());
        QVERIFY(listener.waitForMessages(expected.size()));
        QVERIFY(listener.waitForLastMessage(watcher));
        QCOMPARE(listener.messages, expected);
    }
}

void MountWatcherTest::severalStepsOfOneChangeAreOneMessage()
{
    if (!ownMountTable)
        QSKIP("no right to mount in a private mount namespace");
    WatchedCard watched(1h, 1h);
    auto& [watcher, card, listener] = watched;
    for (int step = 0; step < 4; ++step)
        QVERIFY(card.changeAndWait());
    QCoreApplication::processEvents();
    QCOMPARE(listener.messages, QByteArrayList());
    watcher.setSettlingTime(1ms);
    QVERIFY(listener.waitForMessages(1));
    watcher.setLongestDelay(10ms);
    QVERIFY(listener.waitForLastMessage(watcher));
    QCOMPARE(listener.messages.size(), 1);
}

void MountWatcherTest::endlessMountingIsReportedMeanwhile()
{
    if (!ownMountTable)
        QSKIP("no right to mount in a private mount namespace");
    WatchedCard watched(1h, 10ms);
    auto& [watcher, card, listener] = watched;
    // One change calls for the next.
    const auto changes = connect(card.notifier(), &QSocketNotifier::activated, this,
                                 [&watched] { QVERIFY(watched.card.change()); });
    QVERIFY(card.change());
    QVERIFY(listener.waitForMessages(2));
    disconnect(changes);
    // The last changes are not forgotten.
    const qsizetype before = listener.messages.size();
    QVERIFY(card.changeAndWait());
    QVERIFY(listener.waitForMessages(before + 1));
}

void MountWatcherTest::fileThatIsNoMountTableSendsNothing_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("missing") << u"/nowhere/mountinfo"_s;
    // Always ready for reading; must be no endless source.
    QTest::newRow("ordinary file") << QCoreApplication::applicationFilePath();
}

void MountWatcherTest::fileThatIsNoMountTableSendsNothing()
{
    QFETCH(QString, name);
    teskel::MountWatcher watcher(name);
    watcher.setSettlingTime(0ms);
    watcher.setLongestDelay(0ms);
    Listener listener;
    QCoreApplication::processEvents();
    QVERIFY(listener.waitForLastMessage(watcher));
    QCOMPARE(listener.messages, QByteArrayList());
}

int main(int argc, char** argv)
{
    ownMountTable = enterOwnMountTable();
    const QCoreApplication application(argc, argv);
    MountWatcherTest test;
    return QTest::qExec(&test, argc, argv);
}

#include "test_mountwatcher.moc"
