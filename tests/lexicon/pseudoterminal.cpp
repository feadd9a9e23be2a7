// SPDX-License-Identifier: MIT
#include "tests/lexicon/pseudoterminal.h"

#include <QDeadlineTimer>

#include <array>
#include <csignal>
#include <cstdlib>
#include <vector>

#include <poll.h>
#include <pty.h>
#include <sys/wait.h>
#include <unistd.h>

namespace teskel::test
{

namespace
{
constexpr int patience = 30000; // milliseconds
} // namespace

PseudoTerminal::~PseudoTerminal()
{
    if (_child > 0) {
        ::kill(_child, SIGKILL);
        ::waitpid(_child, nullptr, 0);
    }
    if (_terminal >= 0)
        ::close(_terminal);
}

bool PseudoTerminal::start(const QStringList& command, const QString& directory, const char* kind)
{
    // Whatever allocates comes before the fork.
    const QByteArray place = directory.toLocal8Bit();
    QByteArrayList words;
    std::vector<char*> arguments;
    for (const QString& word : command)
        words += word.toLocal8Bit();
    for (QByteArray& word : words)
        arguments.push_back(word.data());
    arguments.push_back(nullptr);
    _child = ::forkpty(&_terminal, nullptr, nullptr, nullptr);
    if (_child == 0) {
        ::setenv("TERM", kind, 1);
        if (::chdir(place.constData()) == 0)
            ::execv(arguments.front(), arguments.data());
        ::_exit(127);
    }
    return _child > 0;
}

void PseudoTerminal::type(const QByteArray& bytes)
{
    const ssize_t written =
        ::write(_terminal, bytes.constData(), static_cast<size_t>(bytes.size()));
    static_cast<void>(written); // what was not typed has no effect, which the test sees
}

// A terminal whose last process is gone gives an error.
bool PseudoTerminal::readStep()
{
    pollfd waited = {_terminal, POLLIN, 0};
    if (::poll(&waited, 1, patience) <= 0)
        return false;
    std::array<char, 4096> buffer{};
    const ssize_t count = ::read(_terminal, buffer.data(), buffer.size());
    if (count > 0)
        _shown.append(buffer.data(), count);
    return count > 0;
}

bool PseudoTerminal::waitFor(const QByteArray& text)
{
    while (!_shown.contains(text)) {
        if (!readStep())
            return false;
    }
    return true;
}

int PseudoTerminal::finish()
{
    while (readStep()) {
    }
    int status = -1;
    // The terminal is closed a moment before the process is gone.
    const QDeadlineTimer deadline(patience);
    pid_t ended = 0;
    while ((ended = ::waitpid(_child, &status, WNOHANG)) == 0 && !deadline.hasExpired())
        ::poll(nullptr, 0, 1);
    if (ended != _child)
        return -1;
    _child = -1;
    return status;
}

} // namespace teskel::test
