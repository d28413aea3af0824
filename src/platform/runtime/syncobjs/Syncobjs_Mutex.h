// SPDX-License-Identifier: MIT
#pragma once

#include "platform/base/System_String.h"
#include "platform/host/objects/Host_Handle.h"
#include "platform/host/objects/Host_Security.h"

namespace Syncobjs
{

/// How a wait ended.
enum TWaitResult
{
    wrSignaled,
    wrTimeout,
    /// The mutex is the caller's, since its former owner ended without giving it back.
    wrAbandoned,
    wrError,
};

/// A mutex that processes share by its name. Threads own it, not objects: the one that has it gets it again,
/// through any object.
///
///     Syncobjs::TMutex mutex(nullptr, false, u"station");
///     if (mutex.WaitFor(1000) != Syncobjs::wrTimeout) {
///         ...
///         mutex.Release();
///     }
class TRS8_BTL_API TMutex
{
public:
    /// Makes or opens the mutex as `CreateMutexW` does. Raises nothing: a failure leaves the handle null.
    TMutex(const SECURITY_ATTRIBUTES* attributes, bool initialOwner, const System::UnicodeString& name);
    /// Opens the mutex as `OpenMutexW` does. Raises nothing: a failure leaves the handle null.
    TMutex(unsigned long access, bool inherit, const System::UnicodeString& name);
    TMutex(const TMutex&) = delete;
    TMutex& operator=(const TMutex&) = delete;
    /// Closes the handle.
    virtual ~TMutex();

    /// Null if the mutex could neither be made nor opened.
    HANDLE getHandle() const noexcept { return mHandle; }

    /// Of the constructor: 183 for a mutex that was there before, 0 for a new one, else the reason of the
    /// failure. Of a later call that failed: its reason.
    unsigned long getLastError() const noexcept { return mLastError; }

    /// Waits without end. Raises `Sysutils::EOSError` if there is no mutex to wait for.
    void Acquire();
    /// Gives the mutex back once. Raises `Sysutils::EOSError` if it isn't the thread's.
    void Release();
    /// Waits at most so many milliseconds, 0xFFFFFFFF without end.
    TWaitResult WaitFor(unsigned long milliseconds);

private:
    HANDLE mHandle;
    unsigned long mLastError;
};

} // namespace Syncobjs
