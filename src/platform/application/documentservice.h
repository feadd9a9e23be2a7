// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>
#include <QString>

class QThread;

namespace teskel
{

/// Receives requests to open a document from the desktop's session bus.
///
/// Offers org.freedesktop.Application under the name "org.teskel.Teskel". The first program on the
/// bus owns the name; a later one gets no requests. Connecting happens beside the event loop, and
/// without a bus, or in a build without D-Bus, no requests come.
class DocumentService : public QObject
{
    Q_OBJECT

public:
    explicit DocumentService(QObject* parent = nullptr);
    /// Where a bus hangs while it is connected to, waits a second for it; the process then ends
    /// without unwinding static objects.
    ~DocumentService() override;
    DocumentService(const DocumentService&) = delete;
    DocumentService& operator=(const DocumentService&) = delete;

    /// Whether a bus has started this program. The mark is inherited by programs that such a one
    /// starts, so it may be wrong.
    static bool isStartedByBus();

    /// Begins to connect; at once back.
    void start();
    /// Connects and returns once the requests for which a bus started this program have been
    /// reported: at once when there are none, and after five seconds when the bus is silent. Runs
    /// the event loop meanwhile.
    void startAndReceive();

    static QString serviceName();

signals:
    /// What a bus held for this program has been reported, or there is no bus.
    void ready();
    /// Another program asks to open the local file `path`.
    void openRequested(const QString& path);
    /// Another program asks to bring the window to the front.
    void activateRequested();

private:
    void connected();

    [[maybe_unused]] QThread* _connector = nullptr;
};

} // namespace teskel
