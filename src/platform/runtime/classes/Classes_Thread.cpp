// SPDX-License-Identifier: MIT
#include "platform/runtime/classes/Classes_Thread.h"

#include "platform/host/Host_CurrentThread.h"
#include "platform/runtime/classes/Classes_Exceptions.h"
#include "platform/runtime/classes/internal/Classes_ThreadState.h"
#include "platform/runtime/typinfo/System_ClassBuilder.h"

namespace Classes
{

namespace
{

/// Carries a thread out of `Execute`. No `std::exception`, so that handlers for faults let it pass.
struct TLeave
{
};

CThreads& Threads()
{
    return CThreads::Instance();
}

} // namespace

System::TMetaClass* TThread::ClassRecord()
{
    static System::TMetaClass* const record = System::GClassBuilder<TThread>(u"TThread").Build();
    return record;
}

TThread::TThread(bool createSuspended) : mState(new CThreadState(createSuspended))
{
    Threads().Launch(this, mState, &TThread::Run);
}

TThread::~TThread()
{
    EndThread();
}

void TThread::Run(TThread* object, CThreadStatePtr state)
{
    const auto keepFault = [&] {
        Threads().Locked([&] {
            if (state->fatalException == nullptr) {
                state->fatalException = std::current_exception();
            }
        });
    };
    Threads().Enter(*state);
    if (!state->terminated) {
        try {
            object->Execute();
        } catch (const TLeave&) {
            // The return value is set.
        } catch (...) {
            keepFault();
        }
    }
    if (!state->isObjectGone) {
        try {
            object->DoTerminate();
        } catch (...) {
            keepFault();
        }
    }
    if (Threads().ClaimObject(*state)) {
        delete object;
    }
    Threads().Leave(*state);
}

void TThread::AfterConstruction()
{
    if (mState->startsItself) {
        Threads().Start(*mState);
    }
}

void TThread::Start()
{
    if (!Threads().Start(*mState)) {
        throw EThread(u"A thread can be started only once.");
    }
}

void TThread::Resume()
{
    Threads().Resume(*mState);
}

void TThread::Suspend()
{
    Threads().Suspend(*mState);
}

bool TThread::getSuspended() const noexcept
{
    return mState->suspendCount > 0 && !mState->terminated;
}

void TThread::Terminate()
{
    Threads().Terminate(*mState);
}

bool TThread::getTerminated() const noexcept
{
    return mState->terminated.load(std::memory_order_relaxed);
}

bool TThread::getFinished() const
{
    return Threads().Locked([&] { return mState->isFinished; });
}

int TThread::WaitFor()
{
    // Held here, since a thread with `FreeOnTerminate` takes the object along.
    const CThreadStatePtr state = mState;
    Threads().WaitFor(*state);
    return state->returnValue;
}

int TThread::getReturnValue() const noexcept
{
    return mState->returnValue;
}

void TThread::setReturnValue(int value) noexcept
{
    mState->returnValue = value;
}

std::exception_ptr TThread::getFatalException() const
{
    return Threads().Locked([&] { return mState->fatalException; });
}

bool TThread::getFreeOnTerminate() const noexcept
{
    return mState->freeOnTerminate;
}

void TThread::setFreeOnTerminate(bool value) noexcept
{
    mState->freeOnTerminate = value;
}

TNotifyEvent TThread::getOnTerminate() const
{
    return Threads().Locked([&] { return mState->onTerminate; });
}

void TThread::setOnTerminate(const TNotifyEvent& event)
{
    Threads().Locked([&] { mState->onTerminate = event; });
}

unsigned long TThread::getThreadID() const
{
    return Threads().IdOf(*mState);
}

bool TThread::Synchronize(TThread* thread, const TThreadMethod& method)
{
    return !method || Threads().Synchronize(method, thread == nullptr ? nullptr : thread->mState.get(),
                                            TMainCall::EKind::Synchronized);
}

void TThread::Queue(TThread* thread, const TThreadMethod& method)
{
    if (method) {
        Threads().Queue(method, thread == nullptr ? nullptr : thread->mState.get());
    }
}

void TThread::RemoveQueuedEvents(const TThread* thread)
{
    if (thread != nullptr) {
        Threads().RemoveQueued([&](const TMainCall& call) { return call.owner == thread->mState.get(); });
    }
}

void TThread::RemoveQueuedEvents(const TThreadMethod& method)
{
    Threads().RemoveQueued([&](const TMainCall& call) { return call.method == method; });
}

void TThread::NameThreadForDebugging(const System::UnicodeString& name, unsigned long threadID)
{
    Host::NameThread(threadID == 0 ? GetCurrentThreadId() : threadID, name);
}

void TThread::Execute() {}

void TThread::DoTerminate()
{
    if (const TNotifyEvent onTerminate = getOnTerminate()) {
        Threads().Synchronize([&] { onTerminate(this); }, mState.get(), TMainCall::EKind::Ending);
    }
}

void TThread::PassGate()
{
    if (IsCurrentThread()) {
        Threads().PassGate(*mState);
    }
}

void TThread::EndThread() noexcept
{
    Threads().End(*mState);
}

void TThread::LeaveThread(int returnValue)
{
    if (!IsCurrentThread()) {
        throw EThread(u"A thread can be left only by itself.");
    }
    setReturnValue(returnValue);
    throw TLeave();
}

bool TThread::IsCurrentThread() const noexcept
{
    return mState->IsCurrent();
}

} // namespace Classes
