// SPDX-License-Identifier: MIT
#include "platform/application/documentservice.h"

#include "platform/application/applicationadaptor.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QEventLoop>
#include <QFile>
#include <QThread>
#include <QTimer>
#include <cstdio>
#include <cstdlib>

namespace teskel
{

namespace
{

constexpr uint DO_NOT_QUEUE = 4;
constexpr unsigned long PATIENCE = 1000;    // milliseconds
constexpr int PATIENCE_FOR_REQUESTS = 5000; // milliseconds

// The bus library cannot be called off, and would wait for a silent bus when the process unwinds.
void endProcess(int status, void* /*argument*/)
{
    std::fflush(nullptr);
    std::_Exit(status);
}

QDBusMessage callOfBus(const QString& method)
{
    return QDBusMessage::createMethodCall(QStringLiteral("org.freedesktop.DBus"),
                                          QStringLiteral("/org/freedesktop/DBus"),
                                          QStringLiteral("org.freedesktop.DBus"), method);
}

// Without this test libdbus would start a bus of its own where it finds a display.
bool isBusAnnounced()
{
    if (!qEnvironmentVariableIsEmpty("DBUS_SESSION_BUS_ADDRESS"))
        return true;
    const QString runtime = qEnvironmentVariable("XDG_RUNTIME_DIR");
    return !runtime.isEmpty() && QFile::exists(runtime + QLatin1String("/bus"));
}

} // namespace

DocumentService::DocumentService(QObject* parent)
    : QObject(parent)
{
}

DocumentService::~DocumentService()
{
    if (_connector == nullptr || _connector->wait(PATIENCE))
        return;
    // The thread outlives its owner, and nothing that it uses may be taken apart.
    _connector->setParent(nullptr);
    ::on_exit(endProcess, nullptr);
}

QString DocumentService::serviceName()
{
    return QStringLiteral("org.teskel.Teskel");
}

bool DocumentService::isStartedByBus()
{
    return !qEnvironmentVariableIsEmpty("DBUS_STARTER_ADDRESS");
}

void DocumentService::startAndReceive()
{
    start();
    if (_connector == nullptr)
        return;
    QEventLoop loop;
    connect(this, &DocumentService::ready, &loop, &QEventLoop::quit);
    QTimer::singleShot(PATIENCE_FOR_REQUESTS, &loop, &QEventLoop::quit);
    loop.exec();
}

void DocumentService::start()
{
    if (_connector != nullptr || !isBusAnnounced())
        return;
    // A bus that does not answer keeps the caller waiting for many seconds.
    _connector = QThread::create([] { QDBusConnection::sessionBus(); });
    _connector->setParent(this);
    connect(_connector, &QThread::finished, this, &DocumentService::connected);
    _connector->start();
}

void DocumentService::connected()
{
    QDBusConnection bus = QDBusConnection::sessionBus();
    new ApplicationAdaptor(this);
    // The object stands before the name, so that the first request finds it.
    if (!bus.isConnected() || !bus.registerObject(QStringLiteral("/org/teskel/Teskel"), this)) {
        emit ready();
        return;
    }
    QDBusMessage request = callOfBus(QStringLiteral("RequestName"));
    request << serviceName() << DO_NOT_QUEUE;
    bus.asyncCall(request);
    // With the name a bus hands out what it held for its owner, and only then answers this. Queued,
    // as a receiver may have asked for the requests to be.
    const auto* answer =
        new QDBusPendingCallWatcher(bus.asyncCall(callOfBus(QStringLiteral("GetId"))), this);
    connect(answer, &QDBusPendingCallWatcher::finished, this, &DocumentService::ready,
            Qt::QueuedConnection);
}

} // namespace teskel
