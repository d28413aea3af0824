// SPDX-License-Identifier: MIT
#pragma once

#include <algorithm>
#include <iterator>

#include <csignal>
#include <cstddef>
#include <sys/ptrace.h>
#include <sys/syscall.h>
#include <sys/user.h>
#include <sys/wait.h>
#include <unistd.h>

namespace Support
{

/// Runs `body` in a fork, which ends with what it gives. To be called while no other thread runs: the fork
/// would find the locks of that one taken for ever.
template <class Body>
pid_t Fork(Body body)
{
    const pid_t child = fork();
    if (child == 0) {
        _exit(body());
    }
    return child;
}

/// Waits for the end of the fork; -1 if a signal was that.
inline int ExitOf(pid_t child)
{
    int status = 0;
    return waitpid(child, &status, 0) == child && WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

template <class Body>
int ExitOfFork(Body body)
{
    return ExitOf(Fork(body));
}

/// What came of a run with one call of the host that failed.
struct FailedRun
{
    /// Whether there were as many calls.
    bool isReached = false;
    /// The number of the call that failed.
    long call = -1;
    /// What the body gave; -1 if a signal ended it.
    int exit = -1;
};

#if defined(__x86_64__)
inline constexpr bool CanFailCalls = true;

/// Whether a call of the host has to do with files.
inline bool IsFileCall(long call)
{
    static constexpr long calls[] = {
        SYS_open,       SYS_openat, SYS_read,      SYS_pread64,    SYS_write,        SYS_pwrite64,
        SYS_stat,       SYS_fstat,  SYS_lstat,     SYS_newfstatat, SYS_fcntl,        SYS_flock,
        SYS_fsync,      SYS_rename, SYS_renameat,  SYS_renameat2,  SYS_unlink,       SYS_unlinkat,
        SYS_fchown,     SYS_fchmod, SYS_fgetxattr, SYS_fsetxattr,  SYS_fremovexattr, SYS_readlink,
        SYS_readlinkat, SYS_link,   SYS_linkat,    SYS_getcwd,
    };
    return std::find(std::begin(calls), std::end(calls), call) != std::end(calls);
}

/// Runs `body` in a fork, whose file call of the given number, from 0, isn't done and fails with `error`. The
/// fork ends with what the body gives.
template <class Body>
FailedRun RunWithFailingCall(int number, int error, Body body)
{
    const pid_t child = fork();
    if (child == 0) {
        ptrace(PTRACE_TRACEME, 0, nullptr, nullptr);
        raise(SIGSTOP);
        _exit(body());
    }
    FailedRun run;
    int status = 0;
    waitpid(child, &status, 0);
    ptrace(PTRACE_SETOPTIONS, child, nullptr, PTRACE_O_TRACESYSGOOD | PTRACE_O_EXITKILL);
    bool isEntry = true;
    bool isFailing = false;
    for (int signal = 0;;) {
        ptrace(run.isReached && !isFailing ? PTRACE_CONT : PTRACE_SYSCALL, child, nullptr, signal);
        if (waitpid(child, &status, 0) != child || WIFEXITED(status) || WIFSIGNALED(status)) {
            break;
        }
        const bool isCall = WSTOPSIG(status) == (SIGTRAP | 0x80);
        signal = isCall ? 0 : WSTOPSIG(status);
        if (!isCall) {
            continue;
        }
        user_regs_struct registers{};
        ptrace(PTRACE_GETREGS, child, nullptr, &registers);
        const auto call = static_cast<long>(registers.orig_rax);
        if (isEntry && !run.isReached && IsFileCall(call) && number-- == 0) {
            run = {true, call, -1};
            isFailing = true;
            registers.orig_rax = ~0ULL;
            ptrace(PTRACE_SETREGS, child, nullptr, &registers);
        } else if (!isEntry && isFailing) {
            isFailing = false;
            registers.rax = static_cast<unsigned long long>(-error);
            ptrace(PTRACE_SETREGS, child, nullptr, &registers);
        }
        isEntry = !isEntry;
    }
    run.exit = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    return run;
}
#else
inline constexpr bool CanFailCalls = false;

template <class Body>
FailedRun RunWithFailingCall(int, int, Body)
{
    return {};
}
#endif

} // namespace Support
