// SPDX-License-Identifier: MIT
#include "tests/support/childprocess.h"

#include <QProcess>

#include <csignal>

#include <sys/resource.h>

namespace teskel::test
{

ProgramResult runToEnd(QProcess& process, const QString& program, const QStringList& arguments,
                       const QByteArray& input)
{
    process.start(program, arguments);
    process.write(input);
    process.closeWriteChannel();
    if (!process.waitForFinished(-1) || process.exitStatus() != QProcess::NormalExit)
        return {};
    return {process.exitCode(), process.readAllStandardOutput(), process.readAllStandardError()};
}

void limitFileSize(QProcess& process, quint64 bytes, BeyondLimit beyond)
{
    process.setChildProcessModifier([bytes, beyond] {
        const rlimit limit{bytes, bytes};
        ::setrlimit(RLIMIT_FSIZE, &limit);
        (void)std::signal(SIGXFSZ, beyond == BeyondLimit::SignalKills ? SIG_DFL : SIG_IGN);
    });
}

} // namespace teskel::test
