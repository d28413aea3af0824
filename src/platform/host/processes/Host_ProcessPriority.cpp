// SPDX-License-Identifier: MIT
#include "platform/host/processes/Host_ProcessPriority.h"

#include "platform/host/processes/internal/Host_ProcessObject.h"

#include <algorithm>
#include <atomic>
#include <cstdlib>
#include <iterator>
#include <memory>
#include <vector>

#include <dirent.h>
#include <sys/resource.h>

namespace
{

struct TClass
{
    unsigned long number;
    int nice;
};

constexpr TClass Classes[] = {
    {IDLE_PRIORITY_CLASS, 19},         {BELOW_NORMAL_PRIORITY_CLASS, 10}, {NORMAL_PRIORITY_CLASS, 0},
    {ABOVE_NORMAL_PRIORITY_CLASS, -5}, {HIGH_PRIORITY_CLASS, -10},        {REALTIME_PRIORITY_CLASS, -20},
};

constexpr int LeastNice = -20;
constexpr int MostNice = 19;

/// What the main thread differs from the class by.
std::atomic<int> MainOffset{0};
thread_local int ThreadPriority = THREAD_PRIORITY_NORMAL;

int OffsetOf(int priority)
{
    constexpr int step = 2;
    return -step * priority;
}

bool IsMainThread()
{
    return gettid() == getpid();
}

/// -1 is a value like any other, so the reason tells.
bool GetNice(pid_t thread, int& nice)
{
    errno = 0;
    nice = getpriority(PRIO_PROCESS, static_cast<id_t>(thread));
    return errno == 0 || Host::FailErrno();
}

bool SetNice(pid_t thread, int nice)
{
    if (setpriority(PRIO_PROCESS, static_cast<id_t>(thread), std::clamp(nice, LeastNice, MostNice)) == 0) {
        return true;
    }
    return Host::FailErrno();
}

struct TCloseFolder
{
    void operator()(DIR* folder) const { closedir(folder); }
};

std::vector<pid_t> OtherThreadsOf(pid_t process)
{
    std::vector<pid_t> threads;
    const std::string path = "/proc/" + std::to_string(process) + "/task";
    const std::unique_ptr<DIR, TCloseFolder> folder(opendir(path.c_str()));
    while (const dirent* entry = folder == nullptr ? nullptr : readdir(folder.get())) {
        const pid_t thread = std::atoi(entry->d_name);
        if (thread != 0 && thread != process) {
            threads.push_back(thread);
        }
    }
    return threads;
}

/// Null, with the last error set, for what is no process that runs: its number may be that of another one by
/// now.
std::shared_ptr<Host::CProcessObject> RunningProcessOf(HANDLE handle)
{
    auto process = Host::ProcessOf(handle);
    if (process == nullptr || process->IsRunning()) {
        return process;
    }
    SetLastError(ERROR_INVALID_PARAMETER);
    return nullptr;
}

int OwnOffset(pid_t process)
{
    return process == getpid() ? MainOffset.load() : 0;
}

bool IsCurrentThread(HANDLE thread)
{
    if (thread != GetCurrentThread()) {
        Host::RefuseHandle();
        return false;
    }
    return true;
}

const TClass* FindClass(unsigned long number)
{
    const auto* const found = std::ranges::find(Classes, number, &TClass::number);
    return found == std::end(Classes) ? nullptr : found;
}

} // namespace

bool SetPriorityClass(HANDLE handle, unsigned long priorityClass)
{
    const auto process = RunningProcessOf(handle);
    if (process == nullptr) {
        return false;
    }
    const TClass* const wanted = FindClass(priorityClass);
    if (wanted == nullptr) {
        return Host::Fail(ERROR_INVALID_PARAMETER);
    }
    const pid_t id = process->getId();
    const int nice = wanted->nice + OwnOffset(id);
    int former = 0;
    // The main thread first: if it may not rise, nothing changes.
    if (!GetNice(id, former) || !SetNice(id, nice)) {
        return false;
    }
    for (const pid_t thread : OtherThreadsOf(id)) {
        // One that ended meanwhile needs nothing.
        if (int own = 0; GetNice(thread, own) && !SetNice(thread, own + nice - former)) {
            if (GetLastError() == ERROR_ACCESS_DENIED) {
                return false;
            }
        }
    }
    return true;
}

unsigned long GetPriorityClass(HANDLE handle)
{
    const auto process = RunningProcessOf(handle);
    int nice = 0;
    if (process == nullptr || !GetNice(process->getId(), nice)) {
        return 0;
    }
    return Host::PriorityClassOf(nice - OwnOffset(process->getId()));
}

bool SetThreadPriority(HANDLE thread, int priority)
{
    if (!IsCurrentThread(thread)) {
        return false;
    }
    if (std::abs(priority) > THREAD_PRIORITY_HIGHEST && std::abs(priority) != THREAD_PRIORITY_TIME_CRITICAL) {
        return Host::Fail(ERROR_INVALID_PARAMETER);
    }
    int nice = 0;
    int former = 0;
    if (!GetNice(getpid(), nice) || !GetNice(gettid(), former)) {
        return false;
    }
    // Counted from the class, so that what was cut off at the ends doesn't add up. Not from the thread itself
    // either: the host gives it the value of the thread that started it.
    const int wanted = nice - MainOffset.load() + OffsetOf(priority);
    if (std::clamp(wanted, LeastNice, MostNice) != former && !SetNice(gettid(), wanted)) {
        return false;
    }
    ThreadPriority = priority;
    if (IsMainThread()) {
        int now = 0;
        MainOffset = GetNice(getpid(), now) ? now - (nice - MainOffset.load()) : 0;
    }
    return true;
}

int GetThreadPriority(HANDLE thread)
{
    return IsCurrentThread(thread) ? ThreadPriority : THREAD_PRIORITY_ERROR_RETURN;
}

namespace Host
{

void SetPriorityOfNew(int id, unsigned long flags) noexcept
{
    const auto* const wanted =
        std::ranges::find_if(Classes, [flags](const TClass& entry) { return (flags & entry.number) != 0; });
    if (wanted != std::end(Classes)) {
        setpriority(PRIO_PROCESS, static_cast<id_t>(id), wanted->nice);
    }
}

unsigned long PriorityClassOf(int nice) noexcept
{
    return std::ranges::min_element(Classes, {},
                                    [nice](const TClass& entry) { return std::abs(entry.nice - nice); })
        ->number;
}

} // namespace Host
