// SPDX-License-Identifier: MIT
#pragma once

#include "platform/runtime/classes/Classes_Thread.h"

#include <atomic>

namespace BTL
{

/// A thread that runs one action over and over, and that can be stopped and started again. It has no pause of
/// its own: an action that returns at once keeps a processor busy.
///
///     BTL::TActionThread sampling([&] { Sample(); ::Sleep(100); }, true, false, false);
///     sampling.Start();
///     sampling.Stop();                                            // behind the action under way
///     sampling.Start();                                           // once it is suspended
///
/// What the action uses must outlive the thread. A class with an `Execute` of its own keeps the rules of
/// `Classes::TThread`. An exception from the action ends the thread, is kept for `getFatalException`, and its
/// message goes to the log (`BTL::Log`). `Start` doesn't revive such a thread.
class TRS8_BTL_API TActionThread : public Classes::TThread
{
    TRS8_BTL_CLASS(TActionThread, Classes::TThread)

public:
    /// An action that doesn't ask which thread runs it.
    using TAction = System::TClosure<void()>;
    /// An action that gets the thread that runs it, to suspend or leave it, say.
    using TThreadAction = System::TClosure<void(TActionThread*)>;

    /// For a derived class with an `Execute` of its own; its constructor calls `AfterConstruction` at its
    /// end, which starts the thread unless `createSuspended`.
    TActionThread(bool createSuspended, bool synchronized, bool processMessages);
    /// Runs `action`, which may be null: with `synchronized` in the main thread, while the thread paces it,
    /// else in the thread. With `processMessages` the main thread handles its messages after each action.
    TActionThread(const TAction& action, bool createSuspended, bool synchronized, bool processMessages);
    /// Runs `threadAction`, which gets this object and may be null, in the thread, whatever `synchronized`
    /// says.
    TActionThread(const TThreadAction& threadAction, bool createSuspended, bool synchronized,
                  bool processMessages);
    /// Starts no further action and waits for one that is under way. An action that the main thread has yet
    /// to run is taken back.
    ~TActionThread() override;

    /// Runs actions again, in a thread that is suspended; nothing happens in one that isn't, also if it is
    /// about to be by `Stop`.
    void Start();
    /// As `Start`, by `Classes::TThread::Start`: for a thread that was created suspended. Raises
    /// `Classes::EThread` if it was started before.
    void Start2();
    /// Suspends the thread behind the action under way, without waiting for that. Nothing happens to a
    /// suspended one.
    void Stop();
    /// Resumes the thread, however often it was suspended.
    void ForceResume();
    /// Suspends the thread, also while it runs actions: behind the one under way, or at once if the action
    /// itself calls it. Nothing happens to one that is suspended or terminated.
    void ForceSuspend();

    /// Starts no further action, waits for one that is under way, and destroys the object, which was made by
    /// `new`. In the thread itself it returns, and the object goes when the action has ended.
    void Kill();
    /// As the member, but does nothing for null.
    static void Kill(TActionThread* thread);

    /// Always false, with the last error 120: no thread can be cut off safely. It would keep the locks that
    /// it holds, that of the memory among them, so that the rest of the process stood still soon, and nothing
    /// that it had begun would be ended. Let actions be short, or look at `getTerminated`.
    bool TerminateThread();
    /// Ends the thread from within its action; destructors run. `code` is what `WaitFor` gives. Raises
    /// `Classes::EThread` outside the thread, thus in an action that the main thread runs.
    [[noreturn]] void ExitThread(unsigned long code);

protected:
    /// `DoExecSync` or `DoExecAsync`, by the way the thread was created.
    void Execute() override;
    /// Has an exception that ended `Execute` in the log, then calls `OnTerminate`.
    void DoTerminate() override;
    /// Runs the action in the main thread, until the thread is terminated; suspended while it is stopped.
    void DoExecSync();
    /// Runs the action in this thread, until the thread is terminated; suspended while it is stopped.
    void DoExecAsync();
    /// Calls the action, if there is one, then the thread action.
    void DoAction();
    /// Handles the messages of the main thread; to be called there.
    void DoProcessMessages();

private:
    template <class Action>
    void RunActions(Action runAction);
    void ClearFlags();

    // Read by the loop, written by whoever controls it; the effect lags by up to one action.
    std::atomic<bool> mRunning{true};
    const bool mSynchronized;
    const TAction mAction;
    const TThreadAction mThreadAction;
    std::atomic<bool> mProcessMessages;
};

/// Whether the calling thread is that of `System::MainThreadID`.
[[nodiscard]] TRS8_BTL_API bool IsTheCurrentThreadTheMainThread();

/// Runs `method` in the main thread and waits for its end; what it raises comes out here. In the main thread
/// it is called directly. A null method does nothing. It is taken back without having run when the object of
/// the calling thread is destroyed, or the process ends.
TRS8_BTL_API void SynchronizeWithMainThread(const Classes::TThreadMethod& method);

} // namespace BTL
