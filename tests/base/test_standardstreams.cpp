// SPDX-License-Identifier: MIT
#include "base/standardstreams.h"

#include <QTest>

#include <cerrno>

#include <fcntl.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

class TestStandardStreams : public QObject
{
    Q_OBJECT

private slots:
    void closedOnesAreTaken_data();
    void closedOnesAreTaken();
};

namespace
{

constexpr int streams[] = {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO};

bool leadsToNothing(int stream)
{
    struct stat nothing = {};
    struct stat status = {};
    return ::stat("/dev/null", &nothing) == 0 && ::fstat(stream, &status) == 0 &&
           status.st_rdev == nothing.st_rdev && S_ISCHR(status.st_mode);
}

/// Whether what was closed fails as it did, and what was open is what it was.
bool isAsBefore(int stream, bool wasClosed, const struct stat& before)
{
    char byte = 'x';
    if (wasClosed) {
        const ssize_t done =
            stream == STDIN_FILENO ? ::read(stream, &byte, 1) : ::write(stream, &byte, 1);
        return leadsToNothing(stream) && done == -1 && errno == EBADF;
    }
    struct stat now = {};
    return ::fstat(stream, &now) == 0 && now.st_dev == before.st_dev && now.st_ino == before.st_ino;
}

} // namespace

void TestStandardStreams::closedOnesAreTaken_data()
{
    QTest::addColumn<unsigned>("closed"); // a bit for each
    for (unsigned closed = 0; closed < 8; ++closed)
        QTest::addRow("%u", closed) << closed;
}

void TestStandardStreams::closedOnesAreTaken()
{
    QFETCH(unsigned, closed);
    const pid_t child = ::fork();
    if (child == 0) {
        struct stat before[3] = {};
        for (const int stream : streams) {
            (void)::fstat(stream, &before[stream]);
            if ((closed >> stream & 1U) != 0)
                ::close(stream);
        }
        teskel::openStandardStreams();
        bool isRight = true;
        for (const int stream : streams)
            isRight = isRight && isAsBefore(stream, (closed >> stream & 1U) != 0, before[stream]);
        const int next = ::open("/dev/null", O_RDONLY);
        ::_exit(isRight && next > STDERR_FILENO ? 0 : 1);
    }
    int status = -1;
    QCOMPARE(::waitpid(child, &status, 0), child);
    QCOMPARE(status, 0);
}

QTEST_APPLESS_MAIN(TestStandardStreams)
#include "test_standardstreams.moc"
