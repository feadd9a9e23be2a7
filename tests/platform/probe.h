// SPDX-License-Identifier: MIT
#pragma once

#include <QDeadlineTimer>
#include <QProcess>
#include <QStringList>

/// Runs the probe program and follows what it reports.
class Probe
{
public:
    explicit Probe(const QStringList& arguments, const QProcessEnvironment& environment =
                                                     QProcessEnvironment::systemEnvironment())
    {
        _process.setProcessEnvironment(environment);
        _process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
        _process.start(QStringLiteral(TESKEL_PROBE), arguments);
    }
    ~Probe()
    {
        if (_process.state() == QProcess::NotRunning)
            return;
        _process.kill();
        _process.waitForFinished();
    }
    Probe(const Probe&) = delete;
    Probe& operator=(const Probe&) = delete;

    /// Waits until the probe has reported `line`.
    bool waitFor(const QString& line, int milliseconds = 10'000)
    {
        const QDeadlineTimer deadline(milliseconds);
        while (!log().contains(line) && !deadline.hasExpired()) {
            if (!_process.waitForReadyRead(static_cast<int>(deadline.remainingTime())))
                return log().contains(line);
        }
        return log().contains(line);
    }

    /// Everything reported so far.
    QStringList log()
    {
        _output += _process.readAllStandardOutput();
        return QString::fromUtf8(_output).split(u'\n', Qt::SkipEmptyParts);
    }

    /// Waits for the end of the probe; false when it does not come or is a crash.
    bool waitForEnd(int milliseconds = 10'000)
    {
        return (_process.state() == QProcess::NotRunning ||
                _process.waitForFinished(milliseconds)) &&
               _process.exitStatus() == QProcess::NormalExit;
    }

    int exitCode() const { return _process.exitCode(); }
    qint64 processId() const { return _process.processId(); }

private:
    QProcess _process;
    QByteArray _output;
};
