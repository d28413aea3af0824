// SPDX-License-Identifier: MIT
#include "platform/visual/controls/Controls_Thread.h"

#include "platform/host/Host_CurrentThread.h"
#include "platform/runtime/classes/Classes_Exceptions.h"
#include "platform/runtime/classes/Classes_Synchronize.h"

namespace Controls
{

constinit FForeignThread ForeignThread = nullptr;

void CheckMainThread()
{
    if (GetCurrentThreadId() == System::MainThreadID) {
        return;
    }
    if (ForeignThread != nullptr) {
        ForeignThread();
        return;
    }
    throw Classes::EInvalidOperation(u"A control belongs to the main thread");
}

} // namespace Controls
