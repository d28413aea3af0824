// SPDX-License-Identifier: MIT
#pragma once

#include "platform/toolkit/internal/TimerQueue.h"

#include <deque>
#include <functional>
#include <map>
#include <memory>
#include <mutex>
#include <optional>
#include <utility>
#include <vector>

namespace Toolkits
{

/// The message loop of a program that has no screen: actions of any thread, descriptors that are looked
/// after, timers. Of the main thread, but for `Post`.
class CMessageLoop
{
public:
    CMessageLoop();
    CMessageLoop(const CMessageLoop&) = delete;
    CMessageLoop& operator=(const CMessageLoop&) = delete;
    ~CMessageLoop();

    /// Runs `action` in the order of posting. From any thread.
    void Post(std::function<void()> action);
    void Watch(int descriptor, std::function<void()> action);
    /// Also from within the action.
    void Unwatch(int descriptor);
    TTimerId StartTimer(unsigned milliseconds, std::function<void()> tick);
    void StopTimer(TTimerId timer) { mTimers.Stop(timer); }

    /// Runs what was posted, or is to be read, each in its turn; false if nothing waits.
    bool RunPostedOrWatched();
    /// Runs the timer that is due for the longest time; false if none is.
    bool RunTimer() { return mTimers.RunDue(Now()); }
    /// Sleeps until something is posted, to be read or due.
    void Wait();

    /// From now on time stands still for timers, but for `AdvanceClock` and a wait for nothing else.
    void UseVirtualClock() { mVirtualNow = Now(); }
    void AdvanceClock(unsigned milliseconds);

    // For another loop that takes over. What is handed out is gone from here.

    std::deque<std::function<void()>> TakePosted();
    std::map<int, std::function<void()>> TakeWatches() { return std::exchange(mWatches, {}); }
    /// In the order in which they are due, by the clock of `Now`.
    std::vector<CTimerQueue::TTimer> TakeTimers() { return mTimers.Take(); }
    /// Milliseconds of the clock that timers go by.
    System::Int64 Now() const;

private:
    class CWaker;

    bool RunPosted();
    bool RunWatched();
    bool HasPosted();

    std::map<int, std::function<void()>> mWatches;
    /// The descriptor whose action ran last, so that each has its turn.
    int mLastWatched = -1;
    /// Whether what is watched is next, so that neither it nor what is posted waits for the other for long.
    bool mIsWatchedNext = false;
    std::mutex mPostedMutex;
    std::deque<std::function<void()>> mPosted;
    /// Ends the wait of the main thread.
    std::unique_ptr<CWaker> mWaker;
    CTimerQueue mTimers;
    std::optional<System::Int64> mVirtualNow;
};

} // namespace Toolkits
