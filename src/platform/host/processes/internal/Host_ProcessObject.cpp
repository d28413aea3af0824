// SPDX-License-Identifier: MIT
#include "platform/host/processes/internal/Host_ProcessObject.h"

#include "platform/host/internal/Host_Deadline.h"
#include "platform/host/processes/Host_Process.h"

#include <csignal>
#include <map>
#include <system_error>
#include <thread>

#include <poll.h>
#include <sys/epoll.h>
#include <sys/syscall.h>
#include <sys/wait.h>

namespace Host
{

namespace
{

int OpenProcessDescriptor(pid_t id)
{
    return static_cast<int>(syscall(SYS_pidfd_open, id, 0));
}

int SendSignal(int process, int signal)
{
    return static_cast<int>(syscall(SYS_pidfd_send_signal, process, signal, nullptr, 0));
}

/// What a child that ended left; nothing as long as it runs, or if somebody else took it.
std::optional<siginfo_t> TakeEnd(int process)
{
    siginfo_t info = {};
    const int result =
        Uninterrupted([&] { return waitid(P_PIDFD, static_cast<id_t>(process), &info, WEXITED | WNOHANG); });
    return result == 0 && info.si_pid != 0 ? std::optional(info) : std::nullopt;
}

/// Awaits the children that nobody has a handle on any more, each by its own descriptor: other children of
/// the program are none of its business.
class CReaper
{
public:
    /// Never destroyed: the thread runs until the very end.
    static CReaper& Instance()
    {
        static auto* const instance = new CReaper;
        return *instance;
    }

    /// A child that can't be awaited, since descriptors or threads are used up, stays until this process
    /// ends.
    void Add(Descriptor process) noexcept
    {
        if (!Begin()) {
            return;
        }
        epoll_event event = {};
        event.events = EPOLLIN;
        event.data.fd = process.Get();
        if (epoll_ctl(mPoll.Get(), EPOLL_CTL_ADD, process.Get(), &event) == 0) {
            process.Release();
        }
    }

private:
    CReaper() = default;

    bool Begin() noexcept
    {
        const std::lock_guard lock(mGate);
        if (mPoll.IsOpen()) {
            return true;
        }
        mPoll = Descriptor(epoll_create1(EPOLL_CLOEXEC));
        if (!mPoll.IsOpen()) {
            return false;
        }
        // The program's signals are for its own threads.
        sigset_t all;
        sigset_t former;
        sigfillset(&all);
        pthread_sigmask(SIG_SETMASK, &all, &former);
        try {
            std::thread([this] { Run(); }).detach();
        } catch (const std::system_error&) {
            mPoll = Descriptor();
        }
        pthread_sigmask(SIG_SETMASK, &former, nullptr);
        return mPoll.IsOpen();
    }

    [[noreturn]] void Run() const
    {
        for (;;) {
            epoll_event event = {};
            if (epoll_wait(mPoll.Get(), &event, 1, -1) == 1) {
                TakeEnd(event.data.fd);
                // Closing alone wouldn't do: a program that is about to start may have a copy for a moment.
                epoll_ctl(mPoll.Get(), EPOLL_CTL_DEL, event.data.fd, nullptr);
                close(event.data.fd);
            }
        }
    }

    std::mutex mGate;
    Descriptor mPoll;
};

/// The processes that there are handles on, by number.
class CProcessTable
{
public:
    std::shared_ptr<CProcessObject> Find(pid_t id)
    {
        const std::lock_guard lock(mGate);
        const auto found = mProcesses.find(id);
        return found == mProcesses.end() ? nullptr : found->second.lock();
    }

    std::shared_ptr<CProcessObject> Add(std::shared_ptr<CProcessObject> process)
    {
        const std::lock_guard lock(mGate);
        if (mProcesses.size() >= mSweepAt) {
            std::erase_if(mProcesses, [](const auto& entry) { return entry.second.expired(); });
            mSweepAt = 2 * mProcesses.size() + 16;
        }
        mProcesses[process->getId()] = process;
        return process;
    }

private:
    std::mutex mGate;
    std::map<pid_t, std::weak_ptr<CProcessObject>> mProcesses;
    std::size_t mSweepAt = 16;
};

CProcessTable& Processes()
{
    // Never destroyed, as the handles.
    static auto* const processes = new CProcessTable;
    return *processes;
}

unsigned long CodeOf(const siginfo_t& info)
{
    constexpr int killed = 128;
    const int code = info.si_code == CLD_EXITED ? info.si_status : killed + info.si_status;
    return static_cast<unsigned long>(code);
}

bool WasKilled(const siginfo_t& info)
{
    return info.si_code == CLD_KILLED && info.si_status == SIGKILL;
}

} // namespace

std::shared_ptr<CProcessObject> CProcessObject::OfChild(pid_t id)
{
    Descriptor process(OpenProcessDescriptor(id));
    if (!process.IsOpen()) {
        FailErrno();
        return nullptr;
    }
    return Processes().Add(std::make_shared<CProcessObject>(id, std::move(process), true));
}

std::shared_ptr<CProcessObject> CProcessObject::Open(pid_t id)
{
    std::shared_ptr<CProcessObject> known = Processes().Find(id);
    if (known != nullptr && known->IsRunning()) {
        return known;
    }
    Descriptor process(id > 0 ? OpenProcessDescriptor(id) : -1);
    if (!process.IsOpen()) {
        if (known != nullptr) {
            return known;
        }
        const bool isMissing = id <= 0 || errno == ESRCH || errno == EINVAL || errno == ENOENT;
        Fail(isMissing ? ERROR_INVALID_PARAMETER : ErrorFromErrno(errno));
        return nullptr;
    }
    // A child that ended and wasn't awaited yet keeps its number.
    if (known != nullptr && known->mIsChild && !known->mExitCode) {
        return known;
    }
    return Processes().Add(std::make_shared<CProcessObject>(id, std::move(process), false));
}

CProcessObject::~CProcessObject()
{
    if (mIsChild && !mExitCode && !TakeEnd(mProcess.Get())) {
        CReaper::Instance().Add(std::move(mProcess));
    }
}

bool CProcessObject::IsRunning() const noexcept
{
    pollfd entry{mProcess.Get(), POLLIN, 0};
    return Uninterrupted([&] { return poll(&entry, 1, 0); }) == 0;
}

unsigned long CProcessObject::Wait(unsigned long milliseconds)
{
    const Deadline deadline = Deadline::OfWait(milliseconds);
    for (;;) {
        pollfd process[] = {{mProcess.Get(), POLLIN, 0}};
        const int count = deadline.Poll(process);
        if (count > 0) {
            Reap();
            return WAIT_OBJECT_0;
        }
        if (count < 0 && errno != EINTR) {
            FailErrno();
            return WAIT_FAILED;
        }
        if (deadline.IsPast()) {
            return WAIT_TIMEOUT;
        }
    }
}

bool CProcessObject::GetExitCode(unsigned long& code)
{
    // Asked first: what ends behind this still counts as running, or tells its code.
    const bool isRunning = IsRunning();
    Reap();
    const std::lock_guard lock(mGate);
    if (mExitCode) {
        code = *mExitCode;
        return true;
    }
    if (isRunning && (mIsChild || mId == getpid())) {
        code = STILL_ACTIVE;
        return true;
    }
    if (!isRunning && mAskedCode) {
        code = *mAskedCode;
        return true;
    }
    return Fail(ERROR_ACCESS_DENIED);
}

bool CProcessObject::Terminate(unsigned code)
{
    if (mId == getpid()) {
        _exit(static_cast<int>(code));
    }
    Reap();
    const std::lock_guard lock(mGate);
    if (!IsRunning()) {
        return Fail(ERROR_ACCESS_DENIED);
    }
    if (SendSignal(mProcess.Get(), SIGKILL) != 0) {
        return FailErrno();
    }
    if (!mAskedCode) {
        mAskedCode = code;
    }
    return true;
}

void CProcessObject::Reap()
{
    const std::lock_guard lock(mGate);
    if (!mIsChild || mExitCode) {
        return;
    }
    if (const auto end = TakeEnd(mProcess.Get())) {
        mExitCode = mAskedCode && WasKilled(*end) ? *mAskedCode : CodeOf(*end);
    }
}

std::shared_ptr<CProcessObject> ProcessOf(HANDLE handle)
{
    return handle == GetCurrentProcess() ? CProcessObject::Open(getpid()) : ObjectOf<CProcessObject>(handle);
}

} // namespace Host
