// SPDX-License-Identifier: MIT
#include "platform/runtime/classes/internal/Classes_ThreadState.h"

#include "platform/host/Host_CurrentThread.h"
#include "platform/host/Host_Module.h"
#include "platform/runtime/classes/Classes_Exceptions.h"

#include <algorithm>
#include <chrono>
#include <cstdlib>
#include <system_error>
#include <utility>

namespace System
{

constinit unsigned long MainThreadID = 0;

namespace
{

void TakeFirstThread() noexcept
{
    MainThreadID = Host::FirstThreadId();
}

/// Sets the number while the library is loaded, before the units that start threads, and in a fork, whose one
/// thread is its main one.
struct TFirstThread
{
    TFirstThread() noexcept
    {
        TakeFirstThread();
        Host::AfterFork(&TakeFirstThread);
    }
};

[[gnu::init_priority(150)]] TFirstThread firstThread;

} // namespace

} // namespace System

namespace Classes
{

constinit FWakeMainThread WakeMainThread = nullptr;

namespace
{

/// How long the end of the process waits for threads that don't heed that they are asked to end.
constexpr std::chrono::seconds LongestEnd(2);

thread_local CThreadState* CurrentState = nullptr;

bool IsMainThread() noexcept
{
    return GetCurrentThreadId() == System::MainThreadID;
}

void Wake()
{
    if (WakeMainThread != nullptr) {
        WakeMainThread();
    }
}

/// Ends the threads with the main thread: its own objects go before all global ones of the program, which
/// threads may still use.
struct TMainThreadEnd
{
    TMainThreadEnd() = default;
    TMainThreadEnd(const TMainThreadEnd&) = delete;
    TMainThreadEnd& operator=(const TMainThreadEnd&) = delete;
    ~TMainThreadEnd() { CThreads::Instance().EndAll(); }
    void Use() const noexcept {}
};

} // namespace

bool CThreadState::IsCurrent() const noexcept
{
    return CurrentState == this;
}

CThreads& CThreads::Instance()
{
    static auto* const threads = new CThreads;
    return *threads;
}

CThreadState* CThreads::Current() noexcept
{
    return CurrentState;
}

void CThreads::RegisterExit()
{
    if (IsMainThread()) {
        thread_local const TMainThreadEnd end;
        end.Use();
    }
    const std::lock_guard lock(mMutex);
    if (!std::exchange(mIsExitRegistered, true)) {
        mProcess = GetCurrentProcessId();
        // Serves the programs whose main thread starts none, or in which another one calls `exit`.
        static_cast<void>(std::atexit([] { Instance().EndAll(); }));
    }
}

void CThreads::Launch(TThread* object, const CThreadStatePtr& state, void (*run)(TThread*, CThreadStatePtr))
{
    RegisterExit();
    Locked([&] { mThreads.push_back(state); });
    try {
        state->thread = std::thread(run, object, state);
    } catch (const std::system_error& fault) {
        Locked([&] { std::erase(mThreads, state); });
        throw EThread(u"The thread can't be created: " + Sysutils::MessageOf(fault));
    }
}

void CThreads::Enter(CThreadState& state)
{
    CurrentState = &state;
    Locked([&] {
        state.id = GetCurrentThreadId();
        mChanged.notify_all();
    });
    PassGate(state);
}

void CThreads::Leave(CThreadState& state)
{
    const std::lock_guard lock(mMutex);
    state.isFinished = true;
    if (state.isReleased) {
        Forget(state);
    }
    mChanged.notify_all();
}

void CThreads::Forget(const CThreadState& state)
{
    std::erase_if(mThreads, [&](const CThreadStatePtr& entry) { return entry.get() == &state; });
}

void CThreads::Release(CLock& lock, CThreadState& state)
{
    if (std::exchange(state.isReleased, true)) {
        return;
    }
    if (!state.isFinished) {
        state.thread.detach();
        return;
    }
    lock.unlock();
    state.thread.join();
    lock.lock();
    Forget(state);
}

bool CThreads::ClaimObject(CThreadState& state)
{
    const std::lock_guard lock(mMutex);
    return state.freeOnTerminate && !state.isDying && !state.isObjectGone;
}

unsigned long CThreads::IdOf(const CThreadState& state)
{
    CLock lock(mMutex);
    mChanged.wait(lock, [&] { return state.id != 0; });
    return state.id;
}

void CThreads::Suspend(CThreadState& state)
{
    Locked([&] { ++state.suspendCount; });
    if (state.IsCurrent()) {
        PassGate(state);
    }
}

void CThreads::Resume(CThreadState& state)
{
    const std::lock_guard lock(mMutex);
    if (state.suspendCount > 0 && --state.suspendCount == 0) {
        ReleaseGate(state);
    }
}

bool CThreads::Start(CThreadState& state)
{
    if (Locked([&] { return state.isBegun || state.isFinished; })) {
        return false;
    }
    Resume(state);
    return true;
}

void CThreads::Terminate(CThreadState& state)
{
    const std::lock_guard lock(mMutex);
    state.terminated = true;
    ReleaseGate(state);
}

void CThreads::ReleaseGate(CThreadState& state)
{
    state.isBegun = true;
    state.resumed.notify_all();
}

void CThreads::PassGate(CThreadState& state)
{
    const auto isOpen = [&] { return state.suspendCount == 0 || state.terminated; };
    if (isOpen()) {
        return;
    }
    CLock lock(mMutex);
    state.resumed.wait(lock, isOpen);
}

bool CThreads::IsServing(const CThreadState& state) const
{
    return IsMainThread() && std::any_of(mRunning.begin(), mRunning.end(), [&](const CCallPtr& call) {
               return call->caller == &state && call->progress == TMainCall::EProgress::Running;
           });
}

void CThreads::WaitFor(CThreadState& state)
{
    if (state.IsCurrent()) {
        throw EThread(u"A thread can't wait for itself.");
    }
    if (state.startsItself) {
        Start(state);
    }
    const bool isMain = IsMainThread();
    CLock lock(mMutex);
    if (IsServing(state)) {
        throw EThread(u"The main thread can't wait for a thread that waits for it.");
    }
    while (!state.isFinished) {
        if (!isMain || !ServeOne(lock, EServed::All)) {
            mChanged.wait(lock);
        }
    }
}

void CThreads::End(CThreadState& state) noexcept
{
    const bool isMain = IsMainThread();
    CLock lock(mMutex);
    state.isDying = true;
    state.diesInMainThread = isMain;
    state.terminated = true;
    ReleaseGate(state);
    WithdrawAll([&](const TMainCall& call) { return IsRefused(call); });
    if (state.IsCurrent()) {
        state.isObjectGone = true;
        Release(lock, state);
        return;
    }
    if (isMain) {
        // What the main thread does for this thread goes on below, but nobody waits for it any more.
        for (const CCallPtr& call : mRunning) {
            if (call->caller == &state) {
                Withdraw(*call);
            }
        }
    }
    while (!state.isFinished) {
        if (isMain && ServeOne(lock, EServed::SynchronizedAlone)) {
            continue;
        }
        if (!mIsProcessEnding) {
            mChanged.wait(lock);
        } else if (mChanged.wait_until(lock, mDeadline) == std::cv_status::timeout) {
            break;
        }
    }
    Release(lock, state);
}

bool CThreads::HaveAllEnded() const
{
    return std::all_of(mThreads.begin(), mThreads.end(),
                       [](const CThreadStatePtr& state) { return state->isFinished || state->IsCurrent(); });
}

void CThreads::EndAll() noexcept
{
    // A child made by `fork` has none of its parent's threads.
    if (mProcess != GetCurrentProcessId()) {
        return;
    }
    CLock lock(mMutex);
    if (!std::exchange(mIsProcessEnding, true)) {
        mDeadline = std::chrono::steady_clock::now() + LongestEnd;
    }
    WithdrawAll([](const TMainCall&) { return true; });
    for (const CCallPtr& call : mRunning) {
        Withdraw(*call);
    }
    for (const CThreadStatePtr& state : mThreads) {
        state->terminated = true;
        ReleaseGate(*state);
    }
    mChanged.notify_all();
    mChanged.wait_until(lock, mDeadline, [this] { return HaveAllEnded(); });
    for (const CThreadStatePtr& state : std::vector(mThreads)) {
        if (!state->IsCurrent()) {
            Release(lock, *state);
        }
    }
}

bool CThreads::IsRefused(const TMainCall& call) const
{
    const auto isDying = [&](const CThreadState* state) {
        // The last event is still told in the main thread, by the destructor that runs there.
        return state != nullptr && state->isDying && !(call.kind == EKind::Ending && state->diesInMainThread);
    };
    return mIsProcessEnding || isDying(call.caller) || isDying(call.owner);
}

void CThreads::Withdraw(TMainCall& call)
{
    call.progress = TMainCall::EProgress::Withdrawn;
    call.ended.notify_all();
}

bool CThreads::Synchronize(const TThreadMethod& method, const CThreadState* owner, EKind kind)
{
    if (IsMainThread()) {
        method();
        return true;
    }
    const auto call = std::make_shared<TMainCall>();
    call->method = method;
    call->kind = kind;
    call->caller = CurrentState;
    call->owner = owner;
    CLock lock(mMutex);
    if (IsRefused(*call)) {
        return false;
    }
    mCalls.push_back(call);
    mChanged.notify_all();
    lock.unlock();
    Wake();
    lock.lock();
    call->ended.wait(lock, [&] { return call->progress >= TMainCall::EProgress::Done; });
    if (call->progress == TMainCall::EProgress::Withdrawn) {
        return false;
    }
    if (call->fault != nullptr) {
        lock.unlock();
        std::rethrow_exception(std::exchange(call->fault, nullptr));
    }
    return true;
}

void CThreads::Queue(const TThreadMethod& method, const CThreadState* owner)
{
    if (IsMainThread()) {
        method();
        return;
    }
    const auto call = std::make_shared<TMainCall>();
    call->method = method;
    call->owner = owner;
    {
        const std::lock_guard lock(mMutex);
        if (IsRefused(*call)) {
            return;
        }
        mCalls.push_back(call);
        mChanged.notify_all();
    }
    Wake();
}

bool CThreads::ServeOne(CLock& lock, EServed served)
{
    const auto found = std::find_if(mCalls.begin(), mCalls.end(), [&](const CCallPtr& call) {
        return served == EServed::All || call->kind != EKind::Queued;
    });
    if (found == mCalls.end()) {
        return false;
    }
    const CCallPtr call = *found;
    mCalls.erase(found);
    Run(lock, call);
    return true;
}

void CThreads::Run(CLock& lock, const CCallPtr& call)
{
    call->progress = TMainCall::EProgress::Running;
    mRunning.push_back(call);
    lock.unlock();
    std::exception_ptr fault;
    try {
        call->method();
    } catch (...) {
        fault = std::current_exception();
    }
    // What the method holds goes before the thread goes on that made it.
    call->method = nullptr;
    lock.lock();
    std::erase(mRunning, call);
    if (call->progress == TMainCall::EProgress::Running) {
        call->progress = TMainCall::EProgress::Done;
        if (call->kind != EKind::Queued) {
            // Moved, so that the exception ends in the thread that gets it.
            call->fault = std::exchange(fault, nullptr);
        }
        call->ended.notify_all();
    }
    if (fault == nullptr || call->kind != EKind::Queued) {
        return;
    }
    const bool isMoreWaiting = !mCalls.empty();
    lock.unlock();
    if (isMoreWaiting) {
        Wake();
    }
    std::rethrow_exception(fault);
}

bool CThreads::Check(unsigned long milliseconds)
{
    if (!IsMainThread()) {
        throw EThread(u"CheckSynchronize belongs to the main thread.");
    }
    CLock lock(mMutex);
    if (mCalls.empty() && milliseconds > 0) {
        mChanged.wait_for(lock, std::chrono::milliseconds(milliseconds), [this] { return !mCalls.empty(); });
    }
    // Only what waits now: threads that hand over work without a pause must not hold the main thread here.
    auto count = mCalls.size();
    const bool isAny = count > 0;
    while (count > 0 && ServeOne(lock, EServed::All)) {
        --count;
    }
    return isAny;
}

bool CThreads::IsAnyCallWaiting()
{
    return Locked([&] { return !mCalls.empty(); });
}

bool CheckSynchronize(unsigned long milliseconds)
{
    return CThreads::Instance().Check(milliseconds);
}

} // namespace Classes
