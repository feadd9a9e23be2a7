// SPDX-License-Identifier: MIT
#include "tests/platform/probe.h"

#include <QDBusConnection>
#include <QDBusConnectionInterface>
#include <QDBusMessage>
#include <QStandardPaths>
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

const QString programName = u"org.teskel.Teskel"_s;

// For what comes soon; ends a test for which it never comes.
constexpr int longEnough = 60'000;

// A session bus of the test's own.
class Bus
{
public:
    /// @param data directory whose dbus-1/services the bus may start programs from
    bool start(const QString& data = QString())
    {
        const QString program = QStandardPaths::findExecutable(u"dbus-daemon"_s);
        if (program.isEmpty())
            return false;
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert(u"XDG_DATA_HOME"_s, data);
        environment.insert(u"XDG_DATA_DIRS"_s, u"/nowhere"_s);
        _process.setProcessEnvironment(environment);
        _process.start(program, {u"--session"_s, u"--nofork"_s, u"--print-address=1"_s});
        if (!_process.waitForReadyRead(-1))
            return false;
        _address = QString::fromLatin1(_process.readLine()).trimmed();
        return !_address.isEmpty();
    }
    ~Bus()
    {
        QDBusConnection::disconnectFromBus(u"test"_s);
        _process.terminate();
        _process.waitForFinished();
    }
    Bus() = default;
    Bus(const Bus&) = delete;
    Bus& operator=(const Bus&) = delete;

    QString address() const { return _address; }
    QDBusConnection connection() const
    {
        return QDBusConnection::connectToBus(_address, u"test"_s);
    }

private:
    QProcess _process;
    QString _address;
};

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

QStringList socketsOf(qint64 process)
{
    QStringList sockets;
    const QDir files(u"/proc/%1/fd"_s.arg(process));
    for (const QFileInfo& file : files.entryInfoList(QDir::Files | QDir::System)) {
        const QString target = QFile::symLinkTarget(file.filePath());
        if (target.contains(u"socket:"_s))
            sockets.append(target);
    }
    return sockets;
}

QProcessEnvironment environmentWith(const QString& address)
{
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(u"DBUS_SESSION_BUS_ADDRESS"_s, address);
    return environment;
}

bool waitForOwner(const QDBusConnection& bus)
{
    return QTest::qWaitFor(
        [&bus] { return bus.interface()->isServiceRegistered(programName).value(); }, longEnough);
}

QDBusMessage call(const QDBusConnection& bus, const QString& method, const QVariantList& arguments)
{
    QDBusMessage message = QDBusMessage::createMethodCall(programName, u"/org/teskel/Teskel"_s,
                                                          u"org.freedesktop.Application"_s, method);
    message.setArguments(arguments);
    return bus.call(message);
}

// Lets a bus that reads its services from `data` start the probe, which reports to `log`.
bool installService(const QString& data, const QString& log)
{
    QFile installed(QStringLiteral(TESKEL_SERVICE_FILE));
    QFile service(data + u"/dbus-1/services/org.teskel.Teskel.service"_s);
    if (!installed.open(QIODevice::ReadOnly) || !QDir(data).mkpath(u"dbus-1/services"_s) ||
        !service.open(QIODevice::WriteOnly))
        return false;
    const QString command =
        u"Exec=/bin/sh -c 'exec \"%1\" >\"%2\"'"_s.arg(QStringLiteral(TESKEL_PROBE), log);
    const QString text =
        QString::fromUtf8(installed.readAll()).replace(QRegularExpression(u"Exec=.*"_s), command);
    return service.write(text.toUtf8()) > 0;
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
    void requestThatStartedTheProgramComesBeforeTheWindow_data();
    void requestThatStartedTheProgramComesBeforeTheWindow();
    void inheritedMarkOfABusDoesNotHoldUpTheWindow();
    void busOfTheMarkMayBeGone_data();
    void busOfTheMarkMayBeGone();
    void silentBusDoesNotHoldUpTheWindow_data();
    void silentBusDoesNotHoldUpTheWindow();
    void vanishingBusDoesNotEndTheProgram();
};

void DocumentServiceTest::openReachesTheMainWidget_data()
{
    QTest::addColumn<QStringList>("uris");
    QTest::addColumn<QStringList>("documents");
    QTest::newRow("one file") << QStringList{u"file:///tmp/Eng2Ger.PDB"_s}
                              << QStringList{u"document /tmp/Eng2Ger.PDB"_s};
    QTest::newRow("blank and umlaut") << QStringList{u"file:///tmp/my%20card/%C3%A4.PDB"_s}
                                      << QStringList{u"document /tmp/my card/ä.PDB"_s};
    QTest::newRow("several") << QStringList{u"file:///a.PDB"_s, u"file:///b.PDB"_s}
                             << QStringList{u"document /a.PDB"_s, u"document /b.PDB"_s};
    QTest::newRow("not local") << QStringList{u"http://host.example/a.PDB"_s, u"nonsense"_s,
                                              QString(), u"file:///b.PDB"_s}
                               << QStringList{u"document /b.PDB"_s};
    QTest::newRow("none") << QStringList() << QStringList();
}

void DocumentServiceTest::openReachesTheMainWidget()
{
    Bus bus;
    if (!bus.start())
        QSKIP("no dbus-daemon");
    Probe probe({}, environmentWith(bus.address()));
    QVERIFY(waitForOwner(bus.connection()));
    QVERIFY(probe.waitFor(u"running"_s));
    const qsizetype before = probe.log().size();
    QFETCH(QStringList, uris);
    const QDBusMessage reply = call(bus.connection(), u"Open"_s, {uris, QVariantMap()});
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
    Probe probe({u"--box"_s}, environmentWith(bus.address()));
    QVERIFY(waitForOwner(bus.connection()));
    QVERIFY(probe.waitFor(u"running"_s));
    for (const QString& uri : {u"file:///a.PDB"_s, u"file:///b.PDB"_s}) {
        QDBusMessage message = QDBusMessage::createMethodCall(
            programName, u"/org/teskel/Teskel"_s, u"org.freedesktop.Application"_s, u"Open"_s);
        message.setArguments({QStringList{uri}, QVariantMap()});
        bus.connection().asyncCall(message);
    }
    QVERIFY(probe.waitFor(u"document /a.PDB"_s));
    // The second call has arrived once this one is answered.
    QCOMPARE(call(bus.connection(), u"ActivateAction"_s, {u"none"_s, QVariantList(), QVariantMap()})
                 .type(),
             QDBusMessage::ReplyMessage);
    QVERIFY(!probe.log().contains(u"document /b.PDB"_s));
}

void DocumentServiceTest::messageBoxDoesNotHoldUpTheAnswer()
{
    Bus bus;
    if (!bus.start())
        QSKIP("no dbus-daemon");
    Probe probe({u"--box"_s}, environmentWith(bus.address()));
    QVERIFY(waitForOwner(bus.connection()));
    const QDBusMessage reply =
        call(bus.connection(), u"Open"_s, {QStringList{u"file:///a.PDB"_s}, QVariantMap()});
    QCOMPARE(reply.type(), QDBusMessage::ReplyMessage);
    QVERIFY(probe.waitFor(u"document /a.PDB"_s));
}

void DocumentServiceTest::activateIsAnswered()
{
    Bus bus;
    if (!bus.start())
        QSKIP("no dbus-daemon");
    Probe probe({}, environmentWith(bus.address()));
    QVERIFY(waitForOwner(bus.connection()));
    const QVariantMap token{{u"activation-token"_s, u"token"_s}};
    QCOMPARE(call(bus.connection(), u"Activate"_s, {token}).type(), QDBusMessage::ReplyMessage);
}

void DocumentServiceTest::firstProgramKeepsTheName()
{
    Bus bus;
    if (!bus.start())
        QSKIP("no dbus-daemon");
    Probe first({}, environmentWith(bus.address()));
    QVERIFY(waitForOwner(bus.connection()));
    const QString owner = bus.connection().interface()->serviceOwner(programName).value();
    {
        Probe second({}, environmentWith(bus.address()));
        QVERIFY(second.waitFor(u"running"_s));
        // It has asked for the name once it is listed with its own object.
        QVERIFY(QTest::qWaitFor(
            [&bus] {
                return bus.connection().interface()->registeredServiceNames().value().size() >= 5;
            },
            longEnough));
        call(bus.connection(), u"Open"_s, {QStringList{u"file:///a.PDB"_s}, QVariantMap()});
        QVERIFY(first.waitFor(u"document /a.PDB"_s));
        QVERIFY(!second.log().contains(u"document /a.PDB"_s));
        QCOMPARE(bus.connection().interface()->serviceOwner(programName).value(), owner);
    }
    QCOMPARE(bus.connection().interface()->serviceOwner(programName).value(), owner);
}

void DocumentServiceTest::programWithoutDocumentsLeavesTheNameToOthers()
{
    Bus bus;
    if (!bus.start())
        QSKIP("no dbus-daemon");
    Probe plain({u"--no-documents"_s}, environmentWith(bus.address()));
    QVERIFY(plain.waitFor(u"running"_s));
    Probe reader({}, environmentWith(bus.address()));
    QVERIFY(waitForOwner(bus.connection()));
    QCOMPARE(bus.connection().interface()->servicePid(programName).value(),
             static_cast<uint>(reader.processId()));
}

void DocumentServiceTest::withoutABusTheProgramRuns_data()
{
    QTest::addColumn<QString>("address");
    QTest::newRow("none announced") << QString();
    QTest::newRow("nobody there") << u"unix:path=/nowhere/bus"_s;
    QTest::newRow("nonsense") << u"what is this"_s;
}

void DocumentServiceTest::withoutABusTheProgramRuns()
{
    QFETCH(QString, address);
    Probe probe({u"--early"_s}, environmentWith(address));
    QVERIFY(probe.waitFor(u"running"_s));
    QCOMPARE(::kill(static_cast<pid_t>(probe.processId()), SIGTERM), 0);
    QVERIFY(probe.waitForEnd());
    QCOMPARE(probe.log().mid(1), QStringList({u"document /early.PDB"_s, u"shown"_s, u"running"_s,
                                              u"closed"_s, u"end"_s}));
}

void DocumentServiceTest::requestThatStartedTheProgramComesBeforeTheWindow_data()
{
    QTest::addColumn<QString>("method");
    QTest::addColumn<QVariantList>("arguments");
    QTest::addColumn<QStringList>("log");
    const QStringList files{u"file:///tmp/Eng2Ger.PDB"_s, u"file:///tmp/a%20b.PDB"_s};
    QTest::newRow("Open") << u"Open"_s << QVariantList{files.mid(0, 1), QVariantMap()}
                          << QStringList{u"document /tmp/Eng2Ger.PDB"_s, u"shown"_s, u"running"_s};
    QTest::newRow("Open two") << u"Open"_s << QVariantList{files, QVariantMap()}
                              << QStringList{u"document /tmp/Eng2Ger.PDB"_s,
                                             u"document /tmp/a b.PDB"_s, u"shown"_s, u"running"_s};
    QTest::newRow("Activate") << u"Activate"_s << QVariantList{QVariantMap()}
                              << QStringList{u"shown"_s, u"running"_s};
}

void DocumentServiceTest::requestThatStartedTheProgramComesBeforeTheWindow()
{
    const QTemporaryDir data;
    const QString logFile = data.filePath(u"log"_s);
    QVERIFY(installService(data.path(), logFile));
    Bus bus;
    if (!bus.start(data.path()))
        QSKIP("no dbus-daemon");
    QFETCH(const QString, method);
    QFETCH(const QVariantList, arguments);
    const QDBusMessage reply = call(bus.connection(), method, arguments);
    QCOMPARE(reply.type(), QDBusMessage::ReplyMessage);
    const uint id = bus.connection().interface()->servicePid(programName).value();
    QVERIFY(id > 1);
    const auto log = [&logFile] {
        QFile file(logFile);
        return file.open(QIODevice::ReadOnly)
                   ? QString::fromUtf8(file.readAll()).split(u'\n', Qt::SkipEmptyParts).mid(1)
                   : QStringList();
    };
    QTRY_VERIFY_WITH_TIMEOUT(log().contains(u"running"_s), longEnough);
    QTEST(log(), "log");
    QCOMPARE(::kill(static_cast<pid_t>(id), SIGTERM), 0);
    QTRY_VERIFY_WITH_TIMEOUT(
        !bus.connection().interface()->isServiceRegistered(programName).value(), longEnough);
}

void DocumentServiceTest::inheritedMarkOfABusDoesNotHoldUpTheWindow()
{
    // A terminal that a bus started hands the mark on to every program that is started in it.
    Bus bus;
    if (!bus.start())
        QSKIP("no dbus-daemon");
    Probe first({}, environmentWith(bus.address()));
    QVERIFY(waitForOwner(bus.connection()));
    QProcessEnvironment environment = environmentWith(bus.address());
    environment.insert(u"DBUS_STARTER_ADDRESS"_s, bus.address());
    environment.insert(u"DBUS_STARTER_BUS_TYPE"_s, u"session"_s);
    Probe second({u"--early"_s}, environment);
    QVERIFY(second.waitFor(u"running"_s));
    QCOMPARE(second.log().mid(1),
             QStringList({u"document /early.PDB"_s, u"shown"_s, u"running"_s}));
    // Still the one that gets the requests.
    call(bus.connection(), u"Open"_s, {QStringList{u"file:///a.PDB"_s}, QVariantMap()});
    QVERIFY(first.waitFor(u"document /a.PDB"_s));
}

void DocumentServiceTest::busOfTheMarkMayBeGone_data()
{
    withoutABusTheProgramRuns_data();
}

void DocumentServiceTest::busOfTheMarkMayBeGone()
{
    QFETCH(QString, address);
    QProcessEnvironment environment = environmentWith(address);
    environment.insert(u"DBUS_STARTER_ADDRESS"_s, address);
    environment.insert(u"DBUS_STARTER_BUS_TYPE"_s, u"session"_s);
    Probe probe({u"--early"_s}, environment);
    QVERIFY(probe.waitFor(u"running"_s));
    QCOMPARE(probe.log().mid(1), QStringList({u"document /early.PDB"_s, u"shown"_s, u"running"_s}));
}

void DocumentServiceTest::silentBusDoesNotHoldUpTheWindow_data()
{
    QTest::addColumn<bool>("marked");
    QTest::newRow("a person starts the program") << false;
    QTest::newRow("the mark of a bus is inherited") << true;
}

void DocumentServiceTest::silentBusDoesNotHoldUpTheWindow()
{
    QFETCH(const bool, marked);
    SilentBus bus;
    QVERIFY(bus.listens());
    QProcessEnvironment environment = environmentWith(bus.address());
    if (marked) {
        environment.insert(u"DBUS_STARTER_ADDRESS"_s, bus.address());
        environment.insert(u"DBUS_STARTER_BUS_TYPE"_s, u"session"_s);
    }
    Probe probe({u"--unwinding"_s}, environment);
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

void DocumentServiceTest::vanishingBusDoesNotEndTheProgram()
{
    auto bus = std::make_unique<Bus>();
    if (!bus->start())
        QSKIP("no dbus-daemon");
    Probe probe({}, environmentWith(bus->address()));
    QVERIFY(waitForOwner(bus->connection()));
    QVERIFY(probe.waitFor(u"running"_s));
    const auto before = socketsOf(probe.processId()).size();
    bus.reset();
    // It has met the end of the bus when the connection is closed.
    QTRY_VERIFY(socketsOf(probe.processId()).size() < before);
    QVERIFY(probe.isRunning());
    QCOMPARE(::kill(static_cast<pid_t>(probe.processId()), SIGTERM), 0);
    QVERIFY(probe.waitForEnd());
    QCOMPARE(probe.exitCode(), 0);
    QCOMPARE(probe.log().constLast(), u"end"_s);
}

QTEST_GUILESS_MAIN(DocumentServiceTest)
#include "test_documentservice.moc"
