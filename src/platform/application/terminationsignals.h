// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>

#include <array>
#include <memory>

namespace teskel
{

/// Turns SIGTERM, SIGINT and SIGHUP into a Qt signal on the event loop.
///
/// One object at a time; while it lives these signals do not end the process. A SIGHUP that the
/// process was started to ignore (nohup) stays ignored. Destruction restores the old handlers.
class TerminationSignals : public QObject
{
    Q_OBJECT

public:
    explicit TerminationSignals(QObject* parent = nullptr);
    ~TerminationSignals() override;
    TerminationSignals(const TerminationSignals&) = delete;
    TerminationSignals& operator=(const TerminationSignals&) = delete;

signals:
    /// The process was asked to end; several askings in a row may come as one.
    void received();

private:
    class Handlers;
    void drain();

    std::array<int, 2> _sockets{-1, -1};
    std::unique_ptr<Handlers> _handlers;
};

} // namespace teskel
