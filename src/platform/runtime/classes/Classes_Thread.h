// SPDX-License-Identifier: MIT
#pragma once

#include "platform/base/System_String.h"
#include "platform/runtime/classes/Classes_Synchronize.h"

#include <exception>

namespace Classes
{

class CThreadState;

/// A thread and its object, from which a program derives its own. What runs in the thread is `Execute`; it
/// looks at `getTerminated` now and then. No thread is ever cut off: one that is to end is asked, and waited
/// for.
///
///     class TReader : public Classes::TThread
///     {
///     public:
///         TReader() { AfterConstruction(); }                      // starts it, now that all members stand
///         ~TReader() override { EndThread(); }                    // ends it before they go
///
///     protected:
///         void Execute() override { while (!getTerminated()) { ReadNext(); } }
///     };
///
/// As long as it runs, `Execute` uses the members of the derived class. So each class that has an `Execute`
/// ends with the two calls above: C++ has neither of the two moments for a base class.
class TRS8_BTL_API TThread : public System::TObject
{
    TRS8_BTL_CLASS(TThread, System::TObject)

public:
    /// The thread waits for `AfterConstruction` or `WaitFor`, and if `createSuspended` for `Start` or
    /// `Resume`. Raises `EThread` if the host has no thread left.
    explicit TThread(bool createSuspended = false);
    /// As `EndThread`.
    ~TThread() override;

    /// Starts the thread unless it was created suspended or is started already. The last line of the
    /// constructor of a class that has an `Execute`.
    void AfterConstruction();

    /// Starts a thread that was created suspended, or that nobody has started yet. Raises `EThread` if it was
    /// started or terminated before.
    void Start();
    /// Takes back one `Suspend`, or starts the thread; it goes on when all of them are taken back. Nothing
    /// happens to one that isn't suspended.
    void Resume();
    /// Suspends the thread until `Resume` is called as often. It takes hold at once in the thread itself;
    /// asked for from outside at the next `PassGate` of the thread, so that it never stops while it holds a
    /// lock.
    void Suspend();
    /// Whether the thread is suspended or asked to be. Never of one that is terminated.
    bool getSuspended() const noexcept;

    /// Asks the thread to end; one that is suspended goes on for that. One that has not begun ends without
    /// its `Execute`.
    void Terminate();
    /// Whether the thread is asked to end.
    bool getTerminated() const noexcept;
    /// Whether `Execute` and `OnTerminate` are behind it.
    bool getFinished() const;

    /// Waits for the end of the thread and gives its return value; for one that is suspended until somebody
    /// resumes or terminates it. In the main thread it runs what threads hand over meanwhile, and raises what
    /// a queued method does. Raises `EThread` in the thread itself, and in a method that the main thread runs
    /// for it.
    int WaitFor();

    /// What `WaitFor` gives; at first 0.
    int getReturnValue() const noexcept;
    void setReturnValue(int value) noexcept;
    /// The exception that ended `Execute`, or else that of `OnTerminate`; null if there is none. To be asked
    /// behind the end, or in `OnTerminate`.
    std::exception_ptr getFatalException() const;

    /// Whether the thread destroys its object, made by `new`, when it ends. Nobody else may then destroy it.
    /// At first false.
    bool getFreeOnTerminate() const noexcept;
    void setFreeOnTerminate(bool value) noexcept;
    /// Called in the main thread when `Execute` has ended, however it did, and the thread waits for it. Not
    /// called if another thread destroys the object meanwhile, nor while the process ends.
    TNotifyEvent getOnTerminate() const;
    void setOnTerminate(const TNotifyEvent& event);

    /// The number of the thread, as of `::GetCurrentThreadId` in it.
    unsigned long getThreadID() const;

    /// Runs `method` in the main thread and waits until it has; what it raises comes out here. It runs at
    /// once if this is the main thread. False if it was taken back: since the object of the thread that
    /// waits, or `thread`, is destroyed, or the process ends. It hasn't run then, or nobody waits for its
    /// end. A null `thread` stands for none; the empty method does nothing.
    static bool Synchronize(TThread* thread, const TThreadMethod& method);
    /// As the form with a thread, of this one.
    bool Synchronize(const TThreadMethod& method) { return Synchronize(this, method); }
    /// Hands `method` over to the main thread, which runs it some time later, and behind what was handed over
    /// before; what it raises comes out of the message loop. It runs at once if this is the main thread. It
    /// is taken back when `thread` is destroyed, also by `FreeOnTerminate`; a null `thread` stands for none.
    static void Queue(TThread* thread, const TThreadMethod& method);
    /// As the form with a thread, of this one.
    void Queue(const TThreadMethod& method) { Queue(this, method); }
    /// Takes back all that was handed to `Queue` with this thread and hasn't run, or all that equals
    /// `method`.
    static void RemoveQueuedEvents(const TThread* thread);
    static void RemoveQueuedEvents(const TThreadMethod& method);

    /// Gives a thread of this process the name that debuggers show: the calling one, or that of a number. The
    /// host keeps 15 bytes of its UTF-8. A number of no thread changes nothing.
    static void NameThreadForDebugging(const System::UnicodeString& name, unsigned long threadID = 0);

protected:
    /// What runs in the thread, once. An exception ends it, and is kept for `getFatalException`.
    virtual void Execute();
    /// Runs in the thread behind `Execute`, also if that raised; calls `OnTerminate`.
    virtual void DoTerminate();
    /// A safe point of `Execute`: waits here while the thread is suspended.
    void PassGate();
    /// Ends the thread, for the destructor: asks it to terminate and waits for it. What it handed over is
    /// taken back, so that it doesn't wait for the main thread; that one serves other threads meanwhile. In
    /// the thread itself it returns at once.
    void EndThread() noexcept;
    /// Leaves `Execute` from anywhere in it, in order: destructors run, and so does `OnTerminate`. `WaitFor`
    /// gives `returnValue`. Raises `EThread` outside the thread.
    [[noreturn]] void LeaveThread(int returnValue);
    /// Whether the caller runs in this thread.
    bool IsCurrentThread() const noexcept;

private:
    static void Run(TThread* object, System::GSharedBlock<CThreadState> state);

    System::GSharedBlock<CThreadState> mState;
};

} // namespace Classes
