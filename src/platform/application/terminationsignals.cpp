// SPDX-License-Identifier: MIT
#include "platform/application/terminationsignals.h"

#include <QSocketNotifier>

#include <atomic>
#include <cerrno>
#include <csignal>

#include <sys/socket.h>
#include <unistd.h>

namespace teskel
{

namespace
{

constexpr std::array<int, 3> endingSignals{SIGTERM, SIGINT, SIGHUP};

// The end that the handler writes to; the handler may use nothing but this and write().
std::atomic<int> handlerSocket{-1};
static_assert(std::atomic<int>::is_always_lock_free);

void handleSignal(int)
{
    const int savedErrno = errno;
    const char mark = 1;
    const int socket = handlerSocket;
    // A full socket holds marks enough to wake the event loop.
    [[maybe_unused]] const ssize_t written = ::write(socket, &mark, sizeof mark);
    errno = savedErrno;
}

} // namespace

/// Installs the handlers and puts the old ones back.
class TerminationSignals::Handlers
{
public:
    Handlers()
    {
        struct sigaction action = {};
        action.sa_handler = handleSignal;
        action.sa_flags = SA_RESTART;
        sigemptyset(&action.sa_mask);
        for (std::size_t i = 0; i < endingSignals.size(); ++i) {
            ::sigaction(endingSignals[i], nullptr, &_old[i]);
            _installed[i] = endingSignals[i] != SIGHUP || _old[i].sa_handler != SIG_IGN;
            if (_installed[i])
                ::sigaction(endingSignals[i], &action, nullptr);
        }
    }
    ~Handlers()
    {
        for (std::size_t i = 0; i < endingSignals.size(); ++i) {
            if (_installed[i])
                ::sigaction(endingSignals[i], &_old[i], nullptr);
        }
    }
    Handlers(const Handlers&) = delete;
    Handlers& operator=(const Handlers&) = delete;

private:
    std::array<struct sigaction, endingSignals.size()> _old = {};
    std::array<bool, endingSignals.size()> _installed = {};
};

TerminationSignals::TerminationSignals(QObject* parent)
    : QObject(parent)
{
    if (handlerSocket >= 0 ||
        ::socketpair(AF_UNIX, SOCK_STREAM | SOCK_NONBLOCK | SOCK_CLOEXEC, 0, _sockets.data()) != 0)
        return;
    auto* notifier = new QSocketNotifier(_sockets[1], QSocketNotifier::Read, this);
    connect(notifier, &QSocketNotifier::activated, this, &TerminationSignals::drain);
    handlerSocket = _sockets[0];
    _handlers = std::make_unique<Handlers>();
}

TerminationSignals::~TerminationSignals()
{
    if (!_handlers)
        return;
    _handlers.reset();
    handlerSocket = -1;
    ::close(_sockets[0]);
    ::close(_sockets[1]);
}

void TerminationSignals::drain()
{
    std::array<char, 64> marks{};
    while (::read(_sockets[1], marks.data(), marks.size()) > 0) {
    }
    emit received();
}

} // namespace teskel
