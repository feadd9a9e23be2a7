// SPDX-License-Identifier: MIT
#pragma once

#include <QtGlobal>

#include <csignal>

#include <sys/resource.h>

namespace teskel::test
{

/// Lets every file that this process writes grow to so many bytes only, while it lives. Writing
/// then fails as on a full disk, with another reason, and everybody may ask for it.
class FileSizeLimit
{
public:
    explicit FileSizeLimit(rlim_t bytes)
        : _handler(std::signal(SIGXFSZ, SIG_IGN))
    {
        ::getrlimit(RLIMIT_FSIZE, &_limit);
        const rlimit limit{bytes, _limit.rlim_max};
        ::setrlimit(RLIMIT_FSIZE, &limit);
    }
    ~FileSizeLimit()
    {
        ::setrlimit(RLIMIT_FSIZE, &_limit);
        (void)std::signal(SIGXFSZ, _handler);
    }
    Q_DISABLE_COPY_MOVE(FileSizeLimit)

private:
    void (*_handler)(int);
    rlimit _limit{};
};

} // namespace teskel::test
