// SPDX-License-Identifier: MIT
#pragma once

#include "platform/base/System_String.h"
#include "platform/host/objects/Host_Handle.h"
#include "platform/host/objects/Host_Security.h"

// Mutexes that processes share by name.
//
//     const HANDLE mutex = CreateMutexW(nullptr, false, u"station");
//     if (WaitForSingleObject(mutex, 1000) != WAIT_TIMEOUT) {
//         ...                                             // this thread owns it
//         ReleaseMutex(mutex);
//     }
//     CloseHandle(mutex);
//
// Any text is a name, and names are apart by each of their characters. A thread that owns a mutex gets it at
// once again, and gives it back as often. A mutex whose owner ended, as thread or with its process, is free
// for the next one, who gets `WAIT_ABANDONED`; so is one whose owner's process closed its last handle.

/// All that can be done with a mutex.
inline constexpr unsigned long MUTEX_ALL_ACCESS = 0x1F0001;

/// Makes a mutex, or opens that of the name, with `ERROR_ALREADY_EXISTS` as the last error, which is 0 for a
/// new one. Only a new one is owned by the caller if `initialOwner` says so. An empty name makes one for this
/// process alone. Null, with the last error 6 if the name is in use for another kind of object, or 5 if it is
/// that of another user alone.
TRS8_BTL_API HANDLE CreateMutexW(const SECURITY_ATTRIBUTES* attributes, bool initialOwner,
                                 const System::UnicodeString& name);

/// Opens the mutex of the name. Null, with the last error 2 if there is none, or as with `CreateMutexW`.
/// `access` and `inherit` are not looked at.
TRS8_BTL_API HANDLE OpenMutexW(unsigned long access, bool inherit, const System::UnicodeString& name);

/// Gives the mutex back once. False with `ERROR_NOT_OWNER` if it isn't the thread's.
TRS8_BTL_API bool ReleaseMutex(HANDLE mutex);

namespace Host
{

/// As `CreateMutexW`, but for a name that belongs to the user's session: those of other users and of the
/// machine are apart from it, and the empty one is a name as others. The new mutex is owned by nobody. Null
/// with the last error 5 if the session's folder for such names is another user's.
TRS8_BTL_API HANDLE CreateSessionMutex(const System::UnicodeString& name);

/// As `OpenMutexW`, but for a name that belongs to the user's session.
TRS8_BTL_API HANDLE OpenSessionMutex(const System::UnicodeString& name);

} // namespace Host
