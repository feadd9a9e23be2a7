// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QStringList>

class QProcess;

namespace teskel::test
{

/// How a child process ended: code -1 when it failed to start or crashed.
struct ProgramResult {
    int code = -1;
    QByteArray out;
    QByteArray err;
};

/// Starts `program` as `process` with `input` as its standard input, and waits for its end, however
/// long it takes.
[[nodiscard]] ProgramResult runToEnd(QProcess& process, const QString& program,
                                     const QStringList& arguments, const QByteArray& input = {});

/// What becomes of a process that writes beyond its limit, if it does not choose itself.
enum class BeyondLimit {
    WriteFails,
    SignalKills, ///< as after a shell's "ulimit -f"
};

/// Lets every file that `process` writes grow to so many bytes only, as on a full disk. To be
/// called before its start.
void limitFileSize(QProcess& process, quint64 bytes, BeyondLimit beyond = BeyondLimit::WriteFails);

} // namespace teskel::test
