// SPDX-License-Identifier: MIT
#include "tests/support/systemcallfaults.h"

#include <array>
#include <cerrno>
#include <cstddef>
#include <future>
#include <thread>

#include <linux/filter.h>
#include <linux/seccomp.h>
#include <poll.h>
#include <sys/ioctl.h>
#include <sys/prctl.h>
#include <sys/syscall.h>
#include <unistd.h>

namespace teskel::test
{

namespace
{

/// What a thread needs to live and to end, and what is no matter of files.
constexpr std::array unwatched{
    SYS_futex,
    SYS_mmap,
    SYS_munmap,
    SYS_mprotect,
    SYS_mremap,
    SYS_brk,
    SYS_madvise,
    SYS_rt_sigaction,
    SYS_rt_sigprocmask,
    SYS_rt_sigreturn,
    SYS_exit,
    SYS_exit_group,
    SYS_set_robust_list,
    SYS_rseq,
    SYS_sched_yield,
    SYS_clock_gettime,
    SYS_gettid,
    SYS_getpid,
    SYS_tgkill,
    SYS_prlimit64,
    SYS_sched_getaffinity,
    SYS_getrandom,
    SYS_sigaltstack,
    SYS_seccomp,
    SYS_prctl,
    SYS_restart_syscall,
};

/// From now on the calls of this thread are reported to the descriptor that is returned; -1 where
/// that cannot be had.
int watchThisThread()
{
    std::array<sock_filter, unwatched.size() + 3> filter{};
    filter[0] = BPF_STMT(BPF_LD | BPF_W | BPF_ABS, offsetof(seccomp_data, nr));
    for (std::size_t i = 0; i < unwatched.size(); ++i)
        filter[i + 1] = BPF_JUMP(BPF_JMP | BPF_JEQ | BPF_K, static_cast<unsigned>(unwatched[i]),
                                 static_cast<unsigned char>(unwatched.size() - i), 0);
    filter[unwatched.size() + 1] = BPF_STMT(BPF_RET | BPF_K, SECCOMP_RET_USER_NOTIF);
    filter[unwatched.size() + 2] = BPF_STMT(BPF_RET | BPF_K, SECCOMP_RET_ALLOW);
    sock_fprog program{static_cast<unsigned short>(filter.size()), filter.data()};
    if (::prctl(PR_SET_NO_NEW_PRIVS, 1, 0, 0, 0) != 0)
        return -1;
    return static_cast<int>(::syscall(SYS_seccomp, SECCOMP_SET_MODE_FILTER,
                                      SECCOMP_FILTER_FLAG_NEW_LISTENER, &program));
}

/// Answers the calls until the thread that makes them has ended.
QList<int> answer(int listener, qsizetype failing, int error)
{
    QList<int> calls;
    for (;;) {
        pollfd ready{listener, POLLIN, 0};
        if (::poll(&ready, 1, -1) < 0 && errno == EINTR)
            continue;
        if ((ready.revents & POLLIN) == 0)
            return calls;
        seccomp_notif call{};
        if (::ioctl(listener, SECCOMP_IOCTL_NOTIF_RECV, &call) != 0)
            continue;
        seccomp_notif_resp answer{};
        answer.id = call.id;
        if (calls.size() == failing)
            answer.error = -error;
        else
            answer.flags = SECCOMP_USER_NOTIF_FLAG_CONTINUE;
        ::ioctl(listener, SECCOMP_IOCTL_NOTIF_SEND, &answer);
        calls.append(call.data.nr);
    }
}

} // namespace

std::optional<QList<int>> runWithFault(const std::function<void()>& action, qsizetype failing,
                                       int error)
{
    std::promise<int> watched;
    std::thread worker([&] {
        const int listener = watchThisThread();
        watched.set_value(listener);
        if (listener >= 0)
            action();
    });
    const int listener = watched.get_future().get();
    std::optional<QList<int>> calls;
    if (listener >= 0)
        calls = answer(listener, failing, error);
    worker.join();
    if (listener >= 0)
        ::close(listener);
    return calls;
}

} // namespace teskel::test
