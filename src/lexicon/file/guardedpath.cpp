// SPDX-License-Identifier: MIT
#include "lexicon/file/guardedpath.h"

#include <array>
#include <csignal>
#include <cstring>

#include <unistd.h>

namespace teskel
{

namespace
{

constexpr std::array<int, 4> endingSignals = {SIGINT, SIGTERM, SIGHUP, SIGPIPE};

/// Paths for the signal handler, which may use nothing that allocates; empty ones are free.
constexpr size_t mostFiles = 4;
char guardedPaths[mostFiles][4096];

extern "C" void removeGuardedFiles(int signal)
{
    for (const auto& path : guardedPaths) {
        if (path[0] != '\0')
            ::unlink(static_cast<const char*>(path));
    }
    // The handler is gone by now: end the way the signal meant.
    ::raise(signal);
}

void watchSignals()
{
    for (const int signal : endingSignals) {
        struct sigaction old = {};
        // What the caller chose to ignore stays ignored.
        if (::sigaction(signal, nullptr, &old) != 0 || old.sa_handler == SIG_IGN)
            continue;
        struct sigaction action = {};
        action.sa_handler = removeGuardedFiles;
        action.sa_flags = static_cast<int>(SA_RESETHAND);
        ::sigaction(signal, &action, nullptr);
    }
}

/// Takes a free place for the path; null when there is none, or the path is too long for it.
char* remember(const std::string& path)
{
    for (auto& place : guardedPaths) {
        if (place[0] == '\0' && path.size() < sizeof place) {
            std::memcpy(static_cast<char*>(place), path.c_str(), path.size() + 1);
            return static_cast<char*>(place);
        }
    }
    return nullptr;
}

} // namespace

GuardedPath::GuardedPath(const std::string& path)
    : _place(remember(path))
{
    watchSignals();
}

GuardedPath::~GuardedPath()
{
    if (_place)
        _place[0] = '\0';
}

} // namespace teskel
