// SPDX-License-Identifier: MIT
#include "progress/BTL_THRD_ActionThread.h"

#include "foundation/logs/UTL_LOG_Log.h"
#include "platform/host/Host_CurrentThread.h"
#include "platform/host/Host_Error.h"
#include "platform/runtime/typinfo/System_ClassBuilder.h"
#include "platform/visual/Forms.h"

namespace BTL
{

namespace
{

void LogFault(const std::exception_ptr& fault)
{
    try {
        std::rethrow_exception(fault);
    } catch (const std::exception& exception) {
        Log(exception);
    } catch (...) {
        Log(u"A thread was ended by an exception without a message.");
    }
}

} // namespace

System::TMetaClass* TActionThread::ClassRecord()
{
    static System::TMetaClass* const record = System::GClassBuilder<TActionThread>(u"TActionThread").Build();
    return record;
}

TActionThread::TActionThread(bool createSuspended, bool synchronized, bool processMessages)
    : TThread(createSuspended), mSynchronized(synchronized), mProcessMessages(processMessages)
{
}

TActionThread::TActionThread(const TAction& action, bool createSuspended, bool synchronized,
                             bool processMessages)
    : TThread(createSuspended),
      mSynchronized(synchronized),
      mAction(action),
      mProcessMessages(processMessages)
{
    AfterConstruction();
}

TActionThread::TActionThread(const TThreadAction& threadAction, bool createSuspended, bool,
                             bool processMessages)
    : TThread(createSuspended),
      mSynchronized(false),
      mThreadAction(threadAction),
      mProcessMessages(processMessages)
{
    AfterConstruction();
}

TActionThread::~TActionThread()
{
    ClearFlags();
    // Here, since the loop uses the members of this class.
    EndThread();
}

void TActionThread::ClearFlags()
{
    mRunning = false;
    mProcessMessages = false;
}

void TActionThread::Start()
{
    if (getSuspended()) {
        mRunning = true;
        Resume();
    }
}

void TActionThread::Start2()
{
    mRunning = true;
    TThread::Start();
}

void TActionThread::Stop()
{
    if (!getSuspended()) {
        mRunning = false;
    }
}

void TActionThread::ForceResume()
{
    while (getSuspended()) {
        Resume();
    }
}

void TActionThread::ForceSuspend()
{
    if (IsCurrentThread()) {
        // When it returns, somebody has resumed the thread again.
        Suspend();
        return;
    }
    while (!getSuspended() && !getTerminated()) {
        Suspend();
    }
}

void TActionThread::Kill()
{
    ClearFlags();
    if (IsCurrentThread()) {
        setFreeOnTerminate(true);
        Terminate();
        return;
    }
    delete this;
}

void TActionThread::Kill(TActionThread* thread)
{
    if (thread != nullptr) {
        thread->Kill();
    }
}

// NOLINTNEXTLINE(readability-convert-member-functions-to-static)
bool TActionThread::TerminateThread()
{
    SetLastError(ERROR_CALL_NOT_IMPLEMENTED);
    return false;
}

void TActionThread::ExitThread(unsigned long code)
{
    LeaveThread(static_cast<int>(code));
}

void TActionThread::Execute()
{
    if (mSynchronized) {
        DoExecSync();
    } else {
        DoExecAsync();
    }
}

void TActionThread::DoTerminate()
{
    if (const std::exception_ptr fault = getFatalException()) {
        LogFault(fault);
    }
    TThread::DoTerminate();
}

template <class Action>
void TActionThread::RunActions(Action runAction)
{
    const Classes::TThreadMethod processMessages(this, &TActionThread::DoProcessMessages);
    while (!getTerminated()) {
        while (mRunning.load(std::memory_order_relaxed) && !getTerminated()) {
            runAction();
            if (mProcessMessages.load(std::memory_order_relaxed)) {
                Synchronize(processMessages);
            }
            PassGate();
        }
        if (!getTerminated()) {
            Suspend();
        }
    }
}

void TActionThread::DoExecSync()
{
    const Classes::TThreadMethod doAction(this, &TActionThread::DoAction);
    RunActions([&] { Synchronize(doAction); });
}

void TActionThread::DoExecAsync()
{
    RunActions([this] { DoAction(); });
}

void TActionThread::DoAction()
{
    // An action in the main thread may destroy this object.
    const TAction action = mAction;
    const TThreadAction threadAction = mThreadAction;
    if (action) {
        action();
    }
    if (threadAction) {
        threadAction(this);
    }
}

// NOLINTNEXTLINE(readability-convert-member-functions-to-static)
void TActionThread::DoProcessMessages()
{
    Forms::Application->ProcessMessages();
}

bool IsTheCurrentThreadTheMainThread()
{
    return GetCurrentThreadId() == System::MainThreadID;
}

void SynchronizeWithMainThread(const Classes::TThreadMethod& method)
{
    if (!method) {
        return;
    }
    if (IsTheCurrentThreadTheMainThread()) {
        method();
        return;
    }
    Classes::TThread::Synchronize(nullptr, method);
}

} // namespace BTL
