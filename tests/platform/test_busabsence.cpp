// SPDX-License-Identifier: MIT
// The program where no bus answers; where one does, the document service is tested.
#include "platform/application/busdocumentservice.h"
#include "tests/platform/busenvironment.h"
#include "tests/platform/probe.h"

#include <QTemporaryDir>
#include <QtTest>

#include <chrono>
#include <csignal>

#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace
{

// Takes calls and never answers; a program that waits for it waits for ever.
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
    // Waits for the first call.
    bool isCalled()
    {
        _caller = ::accept(_listener, nullptr, nullptr);
        return _caller >= 0;
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
    void patienceIsFiveSeconds();
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

void BusAbsenceTest::patienceIsFiveSeconds()
{
    QVERIFY(teskel::BusDocumentService().patience() == 5s);
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
    Probe probe({u"--impatient"_s},
                marked ? environmentMarkedBy(bus.address()) : environmentWith(bus.address()));
    QVERIFY(probe.waitFor(u"running"_s));
    QVERIFY(bus.isCalled());
    QCOMPARE(::kill(static_cast<pid_t>(probe.processId()), SIGTERM), 0);
    QVERIFY(probe.waitForEnd());
    QCOMPARE(probe.exitCode(), 0);
    QVERIFY(probe.log().contains(u"end"_s));
}

QTEST_GUILESS_MAIN(BusAbsenceTest)
#include "test_busabsence.moc"
