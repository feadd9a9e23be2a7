// SPDX-License-Identifier: MIT
#pragma once

#include "platform/application/documentservice.h"

#include <chrono>

class QThread;

namespace teskel
{

/// Receives requests to open a document from the desktop's session bus.
///
/// Offers org.freedesktop.Application under the program's name. The first program on the bus owns
/// the name; a later one gets no requests. Connecting happens beside the event loop, and without a
/// bus no requests come.
class BusDocumentService : public DocumentService
{
    Q_OBJECT

public:
    using DocumentService::DocumentService;
    Q_DISABLE_COPY_MOVE(BusDocumentService)
    /// Where a bus hangs while it is connected to, waits a second for it; the process then ends
    /// without unwinding static objects.
    ~BusDocumentService() override;

    bool isStartedByRequest() const override;
    void start() override;
    /// When patience ends it returns also where the bus is silent.
    void startAndReceive() override;

    /// How long startAndReceive() waits for a silent bus; five seconds at first.
    std::chrono::milliseconds patience() const { return _patience; }
    void setPatience(std::chrono::milliseconds time) { _patience = time; }

signals:
    /// What a bus held for this program has been reported, or there is no bus.
    void ready();

private:
    void connected();

    QThread* _connector = nullptr;
    std::chrono::milliseconds _patience = std::chrono::seconds(5);
};

} // namespace teskel
