// SPDX-License-Identifier: MIT
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>
#include <QTest>

#include <unistd.h>

using namespace Qt::StringLiterals;

/// The program, started without standard streams.
class TestClosedStreams : public QObject
{
    Q_OBJECT

private slots:
    void noFileTakesTheirPlace();
};

void TestClosedStreams::noFileTakesTheirPlace()
{
    const QTemporaryDir home;
    QProcess process;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(u"QT_QPA_PLATFORM"_s, u"offscreen"_s);
    for (const char* name : {"HOME", "XDG_CONFIG_HOME", "QPEDIR"})
        environment.insert(QString::fromLatin1(name), home.path());
    process.setProcessEnvironment(environment);
    process.setChildProcessModifier([] {
        for (const int stream : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO})
            ::close(stream);
    });
    process.start(QStringLiteral(TESKEL), QStringList());
    QVERIFY(process.waitForStarted());
    for (const int stream : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO})
        QTRY_COMPARE(QFile::symLinkTarget(u"/proc/%1/fd/%2"_s.arg(process.processId()).arg(stream)),
                     u"/dev/null"_s);
    process.kill();
    QVERIFY(process.waitForFinished(-1));
}

QTEST_GUILESS_MAIN(TestClosedStreams)
#include "test_closedstreams.moc"
