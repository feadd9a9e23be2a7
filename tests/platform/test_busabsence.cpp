// SPDX-License-Identifier: MIT
// The program where no bus answers; where one does, the document service is tested.
#include "tests/platform/busenvironment.h"
#include "tests/platform/probe.h"

#include <QTemporaryDir>
#include <QtTest>

#include <array>
#include <cerrno>
#include <csignal>

#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace
{

// Takes calls and never answers.
class SilentBus
{
public:
    SilentBus()
    {
        const QByteArray path = QFile::encodeName(_directory.filePath(u"bus"_s));
        sockaddr_un address = {};
        address.sun_family = AF_UNIX;
        qstrncpy(address.sun_path, path.constData(), sizeof address.sun_path);
        _listens =
            ::bind(_listener, reinterpret_cast<const sockaddr*>(&address), sizeof address) == 0 &&
            ::listen(_listener, 4) == 0;
    }
    ~SilentBus()
    {
        ::close(_caller);
        ::close(_listener);
    }
    SilentBus(const SilentBus&) = delete;
    SilentBus& operator=(const SilentBus&) = delete;

    QString address() const { return u"unix:path="_s + _directory.filePath(u"bus"_s); }
    bool listens() const { return _listens; }
    // Takes the first call; true while the caller goes on waiting for an answer.
    bool isWaitedFor()
    {
        if (_caller < 0)
            _caller = ::accept(_listener, nullptr, nullptr);
        std::array<char, 1024> buffer;
        ssize_t count = 0;
        do
            count = ::recv(_caller, buffer.data(), buffer.size(), MSG_DONTWAIT);
        while (count > 0);
        return count < 0 && errno == EAGAIN;
    }

private:
    QTemporaryDir _directory;
    int _listener = ::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
    int _caller = -1;
    bool _listens = false;
};

} // namespace

class BusAbsenceTest : public QObject
{
    Q_OBJECT

private slots:
    void withoutABusTheProgramRuns_data();
    void withoutABusTheProgramRuns();
    void busOfTheMarkMayBeGone_data();
    void busOfTheMarkMayBeGone();
    void silentBusDoesNotHoldUpTheWindow_data();
    void silentBusDoesNotHoldUpTheWindow();
};

void BusAbsenceTest::withoutABusTheProgramRuns_data()
{
    QTest::addColumn<QString>("address");
    QTest::newRow("none announced") << QString();
    QTest::newRow("nobody there") << u"unix:path=/nowhere/bus"_s;
    QTest::newRow("nonsense") << u"what is this"_s;
}

void BusAbsenceTest::withoutABusTheProgramRuns()
{
    QFETCH(QString, address);
    Probe probe({u"--early"_s}, environmentWith(address));
    QVERIFY(probe.waitFor(u"running"_s));
    QCOMPARE(::kill(static_cast<pid_t>(probe.processId()), SIGTERM), 0);
    QVERIFY(probe.waitForEnd());
    QCOMPARE(probe.log().mid(1), QStringList({u"document /early.PDB"_s, u"shown"_s, u"running"_s,
                                              u"closed"_s, u"end"_s}));
}

void BusAbsenceTest::busOfTheMarkMayBeGone_data()
{
    withoutABusTheProgramRuns_data();
}

void BusAbsenceTest::busOfTheMarkMayBeGone()
{
    QFETCH(QString, address);
    Probe probe({u"--early"_s}, environmentMarkedBy(address));
    QVERIFY(probe.waitFor(u"running"_s));
    QCOMPARE(probe.log().mid(1), QStringList({u"document /early.PDB"_s, u"shown"_s, u"running"_s}));
}

void BusAbsenceTest::silentBusDoesNotHoldUpTheWindow_data()
{
    QTest::addColumn<bool>("marked");
    QTest::newRow("a person starts the program") << false;
    QTest::newRow("the mark of a bus is inherited") << true;
}

void BusAbsenceTest::silentBusDoesNotHoldUpTheWindow()
{
    QFETCH(const bool, marked);
    SilentBus bus;
    QVERIFY(bus.listens());
    Probe probe({u"--unwinding"_s},
                marked ? environmentMarkedBy(bus.address()) : environmentWith(bus.address()));
    QVERIFY(probe.waitFor(u"running"_s));
    // The bus library gives up much later.
    QVERIFY(bus.isWaitedFor());
    QCOMPARE(::kill(static_cast<pid_t>(probe.processId()), SIGTERM), 0);
    QVERIFY(probe.waitForEnd());
    QCOMPARE(probe.exitCode(), 0);
    QVERIFY(probe.log().contains(u"end"_s));
    // Had the program waited for the library, its end would be an ordinary one.
    QVERIFY(!probe.log().contains(u"unwinding"_s));
}

QTEST_GUILESS_MAIN(BusAbsenceTest)
#include "test_busabsence.moc"
