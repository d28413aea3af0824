// SPDX-License-Identifier: MIT
#pragma once

#include "platform/runtime/classes/Classes_Synchronize.h"
#include "platform/runtime/typinfo/System_Closure.h"

#include <atomic>
#include <chrono>
#include <condition_variable>
#include <deque>
#include <exception>
#include <memory>
#include <mutex>
#include <thread>
#include <vector>

namespace Classes
{

class TThread;

/// What a thread and its object share; it stays until both have ended. What isn't atomic belongs to the lock
/// of `CThreads`.
class CThreadState final : public System::TSharedBlock
{
public:
    explicit CThreadState(bool createSuspended) noexcept : startsItself(!createSuspended) {}

    /// Whether the calling thread is the one of this state.
    bool IsCurrent() const noexcept;

    std::atomic<bool> terminated{false};
    std::atomic<bool> freeOnTerminate{false};
    std::atomic<int> returnValue{0};
    /// Changed under the lock alone; the gate looks at it without one.
    std::atomic<int> suspendCount{1};

    /// Whether the end of the construction starts it.
    const bool startsItself;
    /// It was let through the gate for the first time.
    bool isBegun = false;
    bool isFinished = false;
    /// The object ends, so that nothing may reach it any more.
    bool isDying = false;
    /// It is the main thread that destroys the object.
    bool diesInMainThread = false;
    /// The object was destroyed in its own thread.
    bool isObjectGone = false;
    unsigned long id = 0;
    TNotifyEvent onTerminate;
    std::exception_ptr fatalException;
    std::condition_variable resumed;

    /// Joined or detached by who sets the flag.
    bool isReleased = false;
    std::thread thread;
};

using CThreadStatePtr = System::GSharedBlock<CThreadState>;

/// What waits for the main thread.
struct TMainCall
{
    enum class EKind
    {
        Queued,
        Synchronized,
        Ending
    };
    enum class EProgress
    {
        Waiting,
        Running,
        Done,
        Withdrawn
    };

    TThreadMethod method;
    EKind kind = EKind::Queued;
    /// The thread that waits for the result; null for a foreign one, and if nobody waits.
    const CThreadState* caller = nullptr;
    /// The thread object that it was handed over by; null for none.
    const CThreadState* owner = nullptr;
    EProgress progress = EProgress::Waiting;
    std::exception_ptr fault;
    std::condition_variable ended;
};

/// All threads of the process that have an object, and what waits for the main thread. One lock guards all:
/// threads are begun, paused and served far too seldom for more of them.
class CThreads
{
public:
    using EKind = TMainCall::EKind;

    /// Never destroyed: threads may outlast the program's global objects.
    static CThreads& Instance();
    /// The state of the calling thread; null for the main thread and foreign ones.
    static CThreadState* Current() noexcept;

    /// Begins the thread in front of its gate; it runs `TThread::Run` of `object`.
    void Launch(TThread* object, const CThreadStatePtr& state, void (*run)(TThread*, CThreadStatePtr));
    /// Called by the thread itself: at its begin, and at its end, behind which its object may go at any time.
    void Enter(CThreadState& state);
    void Leave(CThreadState& state);
    /// Whether the thread, which ends, has to destroy its object.
    bool ClaimObject(CThreadState& state);

    void Suspend(CThreadState& state);
    void Resume(CThreadState& state);
    /// `Resume` for the first time; false if that was before.
    bool Start(CThreadState& state);
    void Terminate(CThreadState& state);
    void PassGate(CThreadState& state);

    /// Waits for the end of the thread; the main thread serves the others meanwhile. Raises `EThread` where
    /// it would wait for itself.
    void WaitFor(CThreadState& state);
    /// For the destructor of the object: ends the thread, and what it has handed over or waits for.
    void End(CThreadState& state) noexcept;
    /// For the end of the process: no thread waits for the main thread any more, and all are asked to end.
    /// Waits for them, but not for ever.
    void EndAll() noexcept;

    /// False if the method was withdrawn. Raises what the method does.
    bool Synchronize(const TThreadMethod& method, const CThreadState* owner, EKind kind);
    void Queue(const TThreadMethod& method, const CThreadState* owner);
    /// Takes back what was queued and fits `isMeant`, which is given the call.
    template <class Test>
    void RemoveQueued(Test isMeant);
    bool Check(unsigned long milliseconds);
    bool IsAnyCallWaiting();

    /// Reads or writes what belongs to the lock.
    template <class Access>
    auto Locked(Access access)
    {
        const std::lock_guard lock(mMutex);
        return access();
    }
    unsigned long IdOf(const CThreadState& state);

private:
    using CLock = std::unique_lock<std::mutex>;
    using CCallPtr = std::shared_ptr<TMainCall>;
    enum class EServed
    {
        All,
        SynchronizedAlone
    };

    CThreads() = default;

    void RegisterExit();
    bool IsRefused(const TMainCall& call) const;
    /// Runs one call outside the lock; false if there is none.
    bool ServeOne(CLock& lock, EServed served);
    void Run(CLock& lock, const CCallPtr& call);
    bool IsServing(const CThreadState& state) const;
    static void Withdraw(TMainCall& call);
    template <class Test>
    void WithdrawAll(Test isMeant);
    void ReleaseGate(CThreadState& state);
    bool HaveAllEnded() const;
    /// Joins a thread that has finished and lets go of one that hasn't, unless that was done before.
    void Release(CLock& lock, CThreadState& state);
    void Forget(const CThreadState& state);

    std::mutex mMutex;
    /// A thread has begun or ended, or a call waits.
    std::condition_variable mChanged;
    /// Those that haven't ended, or that nobody has joined yet.
    std::vector<CThreadStatePtr> mThreads;
    std::deque<CCallPtr> mCalls;
    /// What the main thread is doing, the innermost one last.
    std::vector<CCallPtr> mRunning;
    bool mIsProcessEnding = false;
    /// When the end of the process waits no longer.
    std::chrono::steady_clock::time_point mDeadline;
    bool mIsExitRegistered = false;
    unsigned long mProcess = 0;
};

template <class Test>
void CThreads::RemoveQueued(Test isMeant)
{
    const std::lock_guard lock(mMutex);
    std::erase_if(mCalls,
                  [&](const CCallPtr& call) { return call->kind == EKind::Queued && isMeant(*call); });
}

template <class Test>
void CThreads::WithdrawAll(Test isMeant)
{
    std::erase_if(mCalls, [&](const CCallPtr& call) {
        if (!isMeant(*call)) {
            return false;
        }
        Withdraw(*call);
        return true;
    });
}

} // namespace Classes
