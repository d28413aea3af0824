// SPDX-License-Identifier: MIT
#include "platform/runtime/syncobjs/Syncobjs_Mutex.h"

#include "platform/host/Host_Error.h"
#include "platform/host/objects/Host_Mutex.h"
#include "platform/runtime/sysutils/Sysutils_File.h"

namespace Syncobjs
{

TMutex::TMutex(const SECURITY_ATTRIBUTES* attributes, bool initialOwner, const System::UnicodeString& name)
    : mHandle(CreateMutexW(attributes, initialOwner, name)), mLastError(GetLastError())
{
}

TMutex::TMutex(unsigned long access, bool inherit, const System::UnicodeString& name)
    : mHandle(OpenMutexW(access, inherit, name)),
      mLastError(mHandle == nullptr ? GetLastError() : ERROR_ALREADY_EXISTS)
{
}

TMutex::~TMutex()
{
    if (mHandle != nullptr) {
        CloseHandle(mHandle);
    }
}

void TMutex::Acquire()
{
    if (WaitFor(INFINITE) == wrError) {
        Sysutils::RaiseLastOSError(mLastError);
    }
}

void TMutex::Release()
{
    if (!ReleaseMutex(mHandle)) {
        mLastError = GetLastError();
        Sysutils::RaiseLastOSError(mLastError);
    }
}

TWaitResult TMutex::WaitFor(unsigned long milliseconds)
{
    switch (WaitForSingleObject(mHandle, milliseconds)) {
    case WAIT_OBJECT_0:
        return wrSignaled;
    case WAIT_ABANDONED:
        return wrAbandoned;
    case WAIT_TIMEOUT:
        return wrTimeout;
    default:
        mLastError = GetLastError();
        return wrError;
    }
}

} // namespace Syncobjs
