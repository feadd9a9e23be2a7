// SPDX-License-Identifier: MIT
#include "tests/platform/busenvironment.h"
#include "tests/platform/probe.h"

#include <QDBusConnection>
#include <QDBusConnectionInterface>
#include <QDBusMessage>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QtTest>

#include <csignal>
#include <memory>

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
        _process.waitForFinished(-1);
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
    void init();
    void openReachesTheMainWidget_data();
    void openReachesTheMainWidget();
    void requestsDuringAMessageBoxWait();
    void messageBoxDoesNotHoldUpTheAnswer();
    void activateIsAnswered();
    void firstProgramKeepsTheName();
    void programWithoutDocumentsLeavesTheNameToOthers();
    void requestThatStartedTheProgramComesBeforeTheWindow_data();
    void requestThatStartedTheProgramComesBeforeTheWindow();
    void inheritedMarkOfABusDoesNotHoldUpTheWindow();
    void vanishingBusDoesNotEndTheProgram();

private:
    /// A reader that has taken the name and runs its event loop; null when there is none.
    std::unique_ptr<Probe> startReader(const QStringList& modes = {}) const;

    std::unique_ptr<Bus> _bus;
};

void DocumentServiceTest::init()
{
    _bus = std::make_unique<Bus>();
    if (!_bus->start())
        QSKIP("no dbus-daemon");
}

std::unique_ptr<Probe> DocumentServiceTest::startReader(const QStringList& modes) const
{
    auto reader = std::make_unique<Probe>(modes, environmentWith(_bus->address()));
    return waitForOwner(_bus->connection()) && reader->waitFor(u"running"_s) ? std::move(reader)
                                                                             : nullptr;
}

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
    const auto probe = startReader();
    QVERIFY(probe);
    const qsizetype before = probe->log().size();
    QFETCH(QStringList, uris);
    const QDBusMessage reply = call(_bus->connection(), u"Open"_s, {uris, QVariantMap()});
    QCOMPARE(reply.type(), QDBusMessage::ReplyMessage);
    QFETCH(QStringList, documents);
    for (const QString& document : documents)
        QVERIFY(probe->waitFor(document));
    QCOMPARE(probe->log().mid(before), documents);
}

void DocumentServiceTest::requestsDuringAMessageBoxWait()
{
    const auto probe = startReader({u"--box"_s});
    QVERIFY(probe);
    for (const QString& uri : {u"file:///a.PDB"_s, u"file:///b.PDB"_s}) {
        QDBusMessage message = QDBusMessage::createMethodCall(
            programName, u"/org/teskel/Teskel"_s, u"org.freedesktop.Application"_s, u"Open"_s);
        message.setArguments({QStringList{uri}, QVariantMap()});
        _bus->connection().asyncCall(message);
    }
    QVERIFY(probe->waitFor(u"document /a.PDB"_s));
    // The second call has arrived once this one is answered.
    QCOMPARE(
        call(_bus->connection(), u"ActivateAction"_s, {u"none"_s, QVariantList(), QVariantMap()})
            .type(),
        QDBusMessage::ReplyMessage);
    QVERIFY(!probe->log().contains(u"document /b.PDB"_s));
}

void DocumentServiceTest::messageBoxDoesNotHoldUpTheAnswer()
{
    const auto probe = startReader({u"--box"_s});
    QVERIFY(probe);
    const QDBusMessage reply =
        call(_bus->connection(), u"Open"_s, {QStringList{u"file:///a.PDB"_s}, QVariantMap()});
    QCOMPARE(reply.type(), QDBusMessage::ReplyMessage);
    QVERIFY(probe->waitFor(u"document /a.PDB"_s));
}

void DocumentServiceTest::activateIsAnswered()
{
    const auto probe = startReader();
    QVERIFY(probe);
    const QVariantMap token{{u"activation-token"_s, u"token"_s}};
    QCOMPARE(call(_bus->connection(), u"Activate"_s, {token}).type(), QDBusMessage::ReplyMessage);
}

void DocumentServiceTest::firstProgramKeepsTheName()
{
    const auto first = startReader();
    QVERIFY(first);
    const QString owner = _bus->connection().interface()->serviceOwner(programName).value();
    {
        Probe second({}, environmentWith(_bus->address()));
        QVERIFY(second.waitFor(u"running"_s));
        // It has asked for the name once it is listed with its own object.
        QVERIFY(QTest::qWaitFor(
            [this] {
                return _bus->connection().interface()->registeredServiceNames().value().size() >= 5;
            },
            longEnough));
        call(_bus->connection(), u"Open"_s, {QStringList{u"file:///a.PDB"_s}, QVariantMap()});
        QVERIFY(first->waitFor(u"document /a.PDB"_s));
        QVERIFY(!second.log().contains(u"document /a.PDB"_s));
        QCOMPARE(_bus->connection().interface()->serviceOwner(programName).value(), owner);
    }
    QCOMPARE(_bus->connection().interface()->serviceOwner(programName).value(), owner);
}

void DocumentServiceTest::programWithoutDocumentsLeavesTheNameToOthers()
{
    Probe plain({u"--no-documents"_s}, environmentWith(_bus->address()));
    QVERIFY(plain.waitFor(u"running"_s));
    const auto reader = startReader();
    QVERIFY(reader);
    QCOMPARE(_bus->connection().interface()->servicePid(programName).value(),
             static_cast<uint>(reader->processId()));
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
    _bus = std::make_unique<Bus>();
    QVERIFY(_bus->start(data.path()));
    QFETCH(const QString, method);
    QFETCH(const QVariantList, arguments);
    const QDBusMessage reply = call(_bus->connection(), method, arguments);
    QCOMPARE(reply.type(), QDBusMessage::ReplyMessage);
    const uint id = _bus->connection().interface()->servicePid(programName).value();
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
        !_bus->connection().interface()->isServiceRegistered(programName).value(), longEnough);
}

void DocumentServiceTest::inheritedMarkOfABusDoesNotHoldUpTheWindow()
{
    // A terminal that a bus started hands the mark on to every program that is started in it.
    const auto first = startReader();
    QVERIFY(first);
    Probe second({u"--early"_s}, environmentMarkedBy(_bus->address()));
    QVERIFY(second.waitFor(u"running"_s));
    QCOMPARE(second.log().mid(1),
             QStringList({u"document /early.PDB"_s, u"shown"_s, u"running"_s}));
    // Still the one that gets the requests.
    call(_bus->connection(), u"Open"_s, {QStringList{u"file:///a.PDB"_s}, QVariantMap()});
    QVERIFY(first->waitFor(u"document /a.PDB"_s));
}

void DocumentServiceTest::vanishingBusDoesNotEndTheProgram()
{
    const auto probe = startReader();
    QVERIFY(probe);
    const auto before = socketsOf(probe->processId()).size();
    _bus.reset();
    // It has met the end of the bus when the connection is closed.
    QTRY_VERIFY(socketsOf(probe->processId()).size() < before);
    QCOMPARE(::kill(static_cast<pid_t>(probe->processId()), SIGTERM), 0);
    QVERIFY(probe->waitForEnd());
    QCOMPARE(probe->exitCode(), 0);
    QCOMPARE(probe->log().constLast(), u"end"_s);
}

QTEST_GUILESS_MAIN(DocumentServiceTest)
#include "test_documentservice.moc"
