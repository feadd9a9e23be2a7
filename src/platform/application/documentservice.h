// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>
#include <QString>

namespace teskel
{

/// Where requests of other programs to open a document come from.
///
/// This one stands for a system that has no such place: no requests come.
class DocumentService : public QObject
{
    Q_OBJECT

public:
    using QObject::QObject;
    Q_DISABLE_COPY_MOVE(DocumentService)
    ~DocumentService() override = default;

    /// The name under which the desktop knows this program.
    static QString serviceName();

    /// Whether this program was started to serve a request. The mark of it is inherited by programs
    /// that such a one starts, so it may be wrong.
    virtual bool isStartedByRequest() const { return false; }
    /// Begins to receive; at once back.
    virtual void start() {}
    /// Returns once the requests for which this program was started have been reported: at once
    /// when there are none. Runs the event loop meanwhile.
    virtual void startAndReceive() {}

signals:
    /// Another program asks to open the local file `path`.
    void openRequested(const QString& path);
    /// Another program asks to bring the window to the front.
    void activateRequested();
};

} // namespace teskel
