// SPDX-License-Identifier: MIT
#include "tests/platform/probe.h"

#include <QDBusConnection>
#include <QDBusConnectionInterface>
#include <QDBusMessage>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QtTest>
#include <csignal>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

namespace
{

const QString SERVICE = QStringLiteral("org.teskel.Teskel");

// A session bus of the test's own.
class Bus
{
public:
    /// @param data directory whose dbus-1/services the bus may start programs from
    bool start(const QString& data = QString())
    {
        const QString program = QStandardPaths::findExecutable(QStringLiteral("dbus-daemon"));
        if (program.isEmpty())
            return false;
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert(QStringLiteral("XDG_DATA_HOME"), data);
        environment.insert(QStringLiteral("XDG_DATA_DIRS"), QStringLiteral("/nowhere"));
        _process.setProcessEnvironment(environment);
        _process.start(program, {QStringLiteral("--session"), QStringLiteral("--nofork"),
                                 QStringLiteral("--print-address=1")});
        if (!_process.waitForReadyRead(10'000))
            return false;
        _address = QString::fromLatin1(_process.readLine()).trimmed();
        return !_address.isEmpty();
    }
    ~Bus()
    {
        QDBusConnection::disconnectFromBus(QStringLiteral("test"));
        _process.terminate();
        _process.waitForFinished();
    }
    Bus() = default;
    Bus(const Bus&) = delete;
    Bus& operator=(const Bus&) = delete;

    QString address() const { return _address; }
    QDBusConnection connection() const
    {
        return QDBusConnection::connectToBus(_address, QStringLiteral("test"));
    }

private:
    QProcess _process;
    QString _address;
};

QProcessEnvironment environmentWith(const QString& address)
{
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("DBUS_SESSION_BUS_ADDRESS"), address);
    return environment;
}

bool waitForOwner(const QDBusConnection& bus)
{
    return QTest::qWaitFor([&bus] { return bus.interface()->isServiceRegistered(SERVICE).value(); },
                           10'000);
}

QDBusMessage call(const QDBusConnection& bus, const QString& method, const QVariantList& arguments)
{
    QDBusMessage message =
        QDBusMessage::createMethodCall(SERVICE, QStringLiteral("/org/teskel/Teskel"),
                                       QStringLiteral("org.freedesktop.Application"), method);
    message.setArguments(arguments);
    return bus.call(message);
}

} // namespace

class DocumentServiceTest : public QObject
{
    Q_OBJECT

private slots:
    void openReachesTheMainWidget_data();
    void openReachesTheMainWidget();
    void requestsDuringAMessageBoxWait();
    void messageBoxDoesNotHoldUpTheAnswer();
    void activateIsAnswered();
    void firstProgramKeepsTheName();
    void programWithoutDocumentsLeavesTheNameToOthers();
    void withoutABusTheProgramRuns_data();
    void withoutABusTheProgramRuns();
    void busStartsTheProgram();
    void silentBusDoesNotHoldUpTheWindow();
    void vanishingBusDoesNotEndTheProgram();
};

void DocumentServiceTest::openReachesTheMainWidget_data()
{
    QTest::addColumn<QStringList>("uris");
    QTest::addColumn<QStringList>("documents");
    QTest::newRow("one file") << QStringList{u"file:///tmp/Eng2Ger.PDB"_qs}
                              << QStringList{u"document /tmp/Eng2Ger.PDB"_qs};
    QTest::newRow("blank and umlaut") << QStringList{u"file:///tmp/my%20card/%C3%A4.PDB"_qs}
                                      << QStringList{u"document /tmp/my card/ä.PDB"_qs};
    QTest::newRow("several") << QStringList{u"file:///a.PDB"_qs, u"file:///b.PDB"_qs}
                             << QStringList{u"document /a.PDB"_qs, u"document /b.PDB"_qs};
    QTest::newRow("not local") << QStringList{u"http://host.example/a.PDB"_qs, u"nonsense"_qs,
                                              QString(), u"file:///b.PDB"_qs}
                               << QStringList{u"document /b.PDB"_qs};
    QTest::newRow("none") << QStringList() << QStringList();
}

void DocumentServiceTest::openReachesTheMainWidget()
{
    Bus bus;
    if (!bus.start())
        QSKIP("no dbus-daemon");
    Probe probe({}, environmentWith(bus.address()));
    QVERIFY(waitForOwner(bus.connection()));
    QVERIFY(probe.waitFor(u"running"_qs));
    const qsizetype before = probe.log().size();
    QFETCH(QStringList, uris);
    const QDBusMessage reply = call(bus.connection(), u"Open"_qs, {uris, QVariantMap()});
    QCOMPARE(reply.type(), QDBusMessage::ReplyMessage);
    QFETCH(QStringList, documents);
    for (const QString& document : documents)
        QVERIFY(probe.waitFor(document));
    QCOMPARE(probe.log().mid(before), documents);
}

void DocumentServiceTest::requestsDuringAMessageBoxWait()
{
    Bus bus;
    if (!bus.start())
        QSKIP("no dbus-daemon");
    Probe probe({u"--box"_qs}, environmentWith(bus.address()));
    QVERIFY(waitForOwner(bus.connection()));
    QVERIFY(probe.waitFor(u"running"_qs));
    for (const QString& uri : {u"file:///a.PDB"_qs, u"file:///b.PDB"_qs}) {
        QDBusMessage message = QDBusMessage::createMethodCall(
            SERVICE, u"/org/teskel/Teskel"_qs, u"org.freedesktop.Application"_qs, u"Open"_qs);
        message.setArguments({QStringList{uri}, QVariantMap()});
        bus.connection().asyncCall(message);
    }
    QVERIFY(probe.waitFor(u"document /a.PDB"_qs));
    // The second call has arrived once this one is answered.
    QCOMPARE(
        call(bus.connection(), u"ActivateAction"_qs, {u"none"_qs, QVariantList(), QVariantMap()})
            .type(),
        QDBusMessage::ReplyMessage);
    QVERIFY(!probe.log().contains(u"document /b.PDB"_qs));
}

void DocumentServiceTest::messageBoxDoesNotHoldUpTheAnswer()
{
    Bus bus;
    if (!bus.start())
        QSKIP("no dbus-daemon");
    Probe probe({u"--box"_qs}, environmentWith(bus.address()));
    QVERIFY(waitForOwner(bus.connection()));
    const QDBusMessage reply =
        call(bus.connection(), u"Open"_qs, {QStringList{u"file:///a.PDB"_qs}, QVariantMap()});
    QCOMPARE(reply.type(), QDBusMessage::ReplyMessage);
    QVERIFY(probe.waitFor(u"document /a.PDB"_qs));
}

void DocumentServiceTest::activateIsAnswered()
{
    Bus bus;
    if (!bus.start())
        QSKIP("no dbus-daemon");
    Probe probe({}, environmentWith(bus.address()));
    QVERIFY(waitForOwner(bus.connection()));
    const QVariantMap token{{u"activation-token"_qs, u"token"_qs}};
    QCOMPARE(call(bus.connection(), u"Activate"_qs, {token}).type(), QDBusMessage::ReplyMessage);
}

void DocumentServiceTest::firstProgramKeepsTheName()
{
    Bus bus;
    if (!bus.start())
        QSKIP("no dbus-daemon");
    Probe first({}, environmentWith(bus.address()));
    QVERIFY(waitForOwner(bus.connection()));
    const QString owner = bus.connection().interface()->serviceOwner(SERVICE).value();
    {
        Probe second({}, environmentWith(bus.address()));
        QVERIFY(second.waitFor(u"running"_qs));
        // It has asked for the name once it is listed with its own object.
        QVERIFY(QTest::qWaitFor(
            [&bus] {
                return bus.connection().interface()->registeredServiceNames().value().size() >= 5;
            },
            10'000));
        call(bus.connection(), u"Open"_qs, {QStringList{u"file:///a.PDB"_qs}, QVariantMap()});
        QVERIFY(first.waitFor(u"document /a.PDB"_qs));
        QVERIFY(!second.log().contains(u"document /a.PDB"_qs));
        QCOMPARE(bus.connection().interface()->serviceOwner(SERVICE).value(), owner);
    }
    QCOMPARE(bus.connection().interface()->serviceOwner(SERVICE).value(), owner);
}

void DocumentServiceTest::programWithoutDocumentsLeavesTheNameToOthers()
{
    Bus bus;
    if (!bus.start())
        QSKIP("no dbus-daemon");
    Probe plain({u"--no-documents"_qs}, environmentWith(bus.address()));
    QVERIFY(plain.waitFor(u"running"_qs));
    Probe reader({}, environmentWith(bus.address()));
    QVERIFY(waitForOwner(bus.connection()));
    QCOMPARE(bus.connection().interface()->servicePid(SERVICE).value(),
             static_cast<uint>(reader.processId()));
}

void DocumentServiceTest::withoutABusTheProgramRuns_data()
{
    QTest::addColumn<QString>("address");
    QTest::newRow("none announced") << QString();
    QTest::newRow("nobody there") << u"unix:path=/nowhere/bus"_qs;
    QTest::newRow("nonsense") << u"what is this"_qs;
}

void DocumentServiceTest::withoutABusTheProgramRuns()
{
    QFETCH(QString, address);
    Probe probe({u"--early"_qs}, environmentWith(address));
    QVERIFY(probe.waitFor(u"running"_qs));
    QCOMPARE(::kill(static_cast<pid_t>(probe.processId()), SIGTERM), 0);
    QVERIFY(probe.waitForEnd());
    QCOMPARE(probe.log().mid(1), QStringList({u"document /early.PDB"_qs, u"shown"_qs, u"running"_qs,
                                              u"closed"_qs, u"end"_qs}));
}

void DocumentServiceTest::busStartsTheProgram()
{
    const QTemporaryDir data;
    QFile installed(QStringLiteral(TESKEL_SERVICE_FILE));
    QVERIFY(installed.open(QIODevice::ReadOnly));
    const QString text =
        QString::fromUtf8(installed.readAll())
            .replace(QRegularExpression(u"Exec=.*"_qs), u"Exec="_qs + QStringLiteral(TESKEL_PROBE));
    QVERIFY(QDir(data.path()).mkpath(u"dbus-1/services"_qs));
    QFile service(data.filePath(u"dbus-1/services/org.teskel.Teskel.service"_qs));
    QVERIFY(service.open(QIODevice::WriteOnly));
    service.write(text.toUtf8());
    service.close();

    Bus bus;
    if (!bus.start(data.path()))
        QSKIP("no dbus-daemon");
    const QDBusMessage reply = call(bus.connection(), u"Open"_qs,
                                    {QStringList{u"file:///tmp/Eng2Ger.PDB"_qs}, QVariantMap()});
    QCOMPARE(reply.type(), QDBusMessage::ReplyMessage);
    const uint id = bus.connection().interface()->servicePid(SERVICE).value();
    QVERIFY(id > 1);
    QCOMPARE(::kill(static_cast<pid_t>(id), SIGTERM), 0);
    QTRY_VERIFY(!bus.connection().interface()->isServiceRegistered(SERVICE).value());
}

void DocumentServiceTest::silentBusDoesNotHoldUpTheWindow()
{
    const QTemporaryDir directory;
    const QByteArray path = directory.filePath(u"bus"_qs).toUtf8();
    sockaddr_un address = {};
    address.sun_family = AF_UNIX;
    qstrncpy(address.sun_path, path.constData(), sizeof address.sun_path);
    const int listener = ::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
    QCOMPARE(::bind(listener, reinterpret_cast<const sockaddr*>(&address), sizeof address), 0);
    QCOMPARE(::listen(listener, 4), 0);

    QElapsedTimer timer;
    timer.start();
    Probe probe({}, environmentWith(u"unix:path="_qs + QString::fromUtf8(path)));
    QVERIFY(probe.waitFor(u"running"_qs));
    QVERIFY(timer.elapsed() < 5'000);
    // The event loop answers while the connection hangs.
    QCOMPARE(::kill(static_cast<pid_t>(probe.processId()), SIGTERM), 0);
    QVERIFY(probe.waitFor(u"end"_qs, 5'000));
    QVERIFY(probe.waitForEnd(5'000));
    QCOMPARE(probe.exitCode(), 0);
    ::close(listener);
}

void DocumentServiceTest::vanishingBusDoesNotEndTheProgram()
{
    auto bus = std::make_unique<Bus>();
    if (!bus->start())
        QSKIP("no dbus-daemon");
    Probe probe({}, environmentWith(bus->address()));
    QVERIFY(waitForOwner(bus->connection()));
    QVERIFY(probe.waitFor(u"running"_qs));
    bus.reset();
    QVERIFY(!probe.waitForEnd(300));
    QCOMPARE(::kill(static_cast<pid_t>(probe.processId()), SIGTERM), 0);
    QVERIFY(probe.waitForEnd());
    QCOMPARE(probe.log().constLast(), u"end"_qs);
}

QTEST_GUILESS_MAIN(DocumentServiceTest)
#include "test_documentservice.moc"
