// SPDX-License-Identifier: MIT
#include "platform/toolkit/internal/MessageLoop.h"

#include "platform/host/internal/Host_Wakeup.h"

#include <algorithm>
#include <atomic>
#include <cerrno>
#include <chrono>
#include <climits>
#include <iterator>

#include <poll.h>
#include <unistd.h>

namespace Toolkits
{

namespace
{

System::Int64 SteadyNow()
{
    const auto now = std::chrono::steady_clock::now().time_since_epoch();
    return std::chrono::duration_cast<std::chrono::milliseconds>(now).count();
}

} // namespace

/// Wakes the main thread where it waits, and costs nothing where it doesn't.
class CMessageLoop::CWaker
{
public:
    /// The wait of the main thread. What is posted from its begin on ends it.
    class CWait
    {
    public:
        explicit CWait(CWaker& waker) : mWaker(waker)
        {
            mWaker.Own();
            mWaker.mIsWaiting = true;
        }
        CWait(const CWait&) = delete;
        CWait& operator=(const CWait&) = delete;
        ~CWait()
        {
            mWaker.mIsWaiting = false;
            static_cast<void>(mWaker.mWakeup.Take());
        }

    private:
        CWaker& mWaker;
    };

    int Get() const noexcept { return mWakeup.Get(); }

    void Wake() const
    {
        if (mIsWaiting) {
            mWakeup.Wake();
        }
    }

private:
    /// A process that was forked off would take what wakes this one.
    void Own()
    {
        if (mProcess != getpid()) {
            mWakeup = Host::Wakeup();
            mProcess = getpid();
        }
    }

    pid_t mProcess = getpid();
    Host::Wakeup mWakeup;
    std::atomic<bool> mIsWaiting = false;
};

CMessageLoop::CMessageLoop() : mWaker(std::make_unique<CWaker>()) {}

CMessageLoop::~CMessageLoop() = default;

System::Int64 CMessageLoop::Now() const
{
    return mVirtualNow.value_or(SteadyNow());
}

void CMessageLoop::Post(std::function<void()> action)
{
    {
        const std::lock_guard lock(mPostedMutex);
        mPosted.push_back(std::move(action));
    }
    mWaker->Wake();
}

std::deque<std::function<void()>> CMessageLoop::TakePosted()
{
    const std::lock_guard lock(mPostedMutex);
    return std::exchange(mPosted, {});
}

void CMessageLoop::Watch(int descriptor, std::function<void()> action)
{
    mWatches.insert_or_assign(descriptor, std::move(action));
}

void CMessageLoop::Unwatch(int descriptor)
{
    mWatches.erase(descriptor);
}

TTimerId CMessageLoop::StartTimer(unsigned milliseconds, std::function<void()> tick)
{
    return mTimers.Start(Now(), milliseconds, std::move(tick));
}

bool CMessageLoop::RunPostedOrWatched()
{
    mIsWatchedNext = !mIsWatchedNext;
    return mIsWatchedNext ? RunPosted() || RunWatched() : RunWatched() || RunPosted();
}

bool CMessageLoop::HasPosted()
{
    const std::lock_guard lock(mPostedMutex);
    return !mPosted.empty();
}

bool CMessageLoop::RunPosted()
{
    std::function<void()> action;
    {
        const std::lock_guard lock(mPostedMutex);
        if (mPosted.empty()) {
            return false;
        }
        action = std::move(mPosted.front());
        mPosted.pop_front();
    }
    action();
    return true;
}

bool CMessageLoop::RunWatched()
{
    const auto isReady = [](const auto& watch) {
        pollfd state{watch.first, POLLIN, 0};
        return poll(&state, 1, 0) > 0;
    };
    // From the one behind the last on.
    const auto next = mWatches.upper_bound(mLastWatched);
    auto found = std::find_if(next, mWatches.end(), isReady);
    if (found == mWatches.end()) {
        found = std::find_if(mWatches.begin(), next, isReady);
        if (found == next) {
            return false;
        }
    }
    mLastWatched = found->first;
    // The action may end its own watch.
    const std::function<void()> action = found->second;
    action();
    return true;
}

void CMessageLoop::Wait()
{
    const CWaker::CWait wait(*mWaker);
    std::vector<pollfd> sources = {{mWaker->Get(), POLLIN, 0}};
    std::ranges::transform(mWatches, std::back_inserter(sources), [](const auto& watch) {
        return pollfd{watch.first, POLLIN, 0};
    });
    const std::optional<System::Int64> due = mTimers.NextDue();
    if (due && mVirtualNow) {
        mVirtualNow = std::max(*mVirtualNow, *due);
        return;
    }
    const auto timeout = [&] {
        return due ? static_cast<int>(std::clamp<System::Int64>(*due - Now(), 0, INT_MAX)) : -1;
    };
    while (!HasPosted() && poll(sources.data(), sources.size(), timeout()) < 0 && errno == EINTR) {
    }
}

void CMessageLoop::AdvanceClock(unsigned milliseconds)
{
    if (!mVirtualNow) {
        UseVirtualClock();
    }
    const System::Int64 end = *mVirtualNow + milliseconds;
    for (auto due = mTimers.NextDue(); due && *due <= end; due = mTimers.NextDue()) {
        mVirtualNow = std::max(*mVirtualNow, *due);
        mTimers.RunDue(*mVirtualNow);
    }
    mVirtualNow = end;
}

} // namespace Toolkits
