// SPDX-License-Identifier: MIT
#include "platform/application/busdocumentservice.h"

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

using namespace Qt::StringLiterals;

namespace teskel
{

namespace
{

constexpr uint doNotQueue = 4;
constexpr unsigned long patienceAtTheEnd = 1000; // milliseconds

// The bus library cannot be called off, and would wait for a silent bus when the process unwinds.
void endProcess(int status, void* /*argument*/)
{
    std::fflush(nullptr);
    std::_Exit(status);
}

QDBusMessage callOfBus(const QString& method)
{
    return QDBusMessage::createMethodCall(u"org.freedesktop.DBus"_s, u"/org/freedesktop/DBus"_s,
                                          u"org.freedesktop.DBus"_s, method);
}

// Without this test libdbus would start a bus of its own where it finds a display.
bool isBusAnnounced()
{
    if (!qEnvironmentVariableIsEmpty("DBUS_SESSION_BUS_ADDRESS"))
        return true;
    const QString runtime = qEnvironmentVariable("XDG_RUNTIME_DIR");
    return !runtime.isEmpty() && QFile::exists(runtime + "/bus"_L1);
}

} // namespace

BusDocumentService::~BusDocumentService()
{
    if (_connector == nullptr || _connector->wait(patienceAtTheEnd))
        return;
    // The thread outlives its owner, and nothing that it uses may be taken apart.
    _connector->setParent(nullptr);
    ::on_exit(endProcess, nullptr);
}

bool BusDocumentService::isStartedByRequest() const
{
    return !qEnvironmentVariableIsEmpty("DBUS_STARTER_ADDRESS");
}

void BusDocumentService::startAndReceive()
{
    start();
    if (_connector == nullptr)
        return;
    QEventLoop loop;
    connect(this, &BusDocumentService::ready, &loop, &QEventLoop::quit);
    QTimer::singleShot(_patience, &loop, &QEventLoop::quit);
    loop.exec();
}

void BusDocumentService::start()
{
    if (_connector != nullptr || !isBusAnnounced())
        return;
    // A bus that does not answer keeps the caller waiting for many seconds.
    _connector = QThread::create([] { QDBusConnection::sessionBus(); });
    _connector->setParent(this);
    connect(_connector, &QThread::finished, this, &BusDocumentService::connected);
    _connector->start();
}

void BusDocumentService::connected()
{
    QDBusConnection bus = QDBusConnection::sessionBus();
    new ApplicationAdaptor(this);
    // The object stands before the name, so that the first request finds it.
    if (!bus.isConnected() || !bus.registerObject(u"/org/teskel/Teskel"_s, this)) {
        emit ready();
        return;
    }
    QDBusMessage request = callOfBus(u"RequestName"_s);
    request << serviceName() << doNotQueue;
    bus.asyncCall(request);
    // With the name a bus hands out what it held for its owner, and only then answers this. Queued,
    // as a receiver may have asked for the requests to be.
    const auto* answer = new QDBusPendingCallWatcher(bus.asyncCall(callOfBus(u"GetId"_s)), this);
    connect(answer, &QDBusPendingCallWatcher::finished, this, &BusDocumentService::ready,
            Qt::QueuedConnection);
}

} // namespace teskel
