// SPDX-License-Identifier: MIT
#pragma once

#include "platform/base/System_String.h"

/// The host's number of the calling thread; no other thread of the machine has it as long as this one runs.
TRS8_BTL_API unsigned long GetCurrentThreadId() noexcept;

namespace Host
{

/// The number of the thread that the process began with.
TRS8_BTL_API unsigned long FirstThreadId() noexcept;

/// Calls `action` in each process that this one forks off, in the one thread that it begins with.
TRS8_BTL_API void AfterFork(void (*action)()) noexcept;

/// Gives a thread of this process the name that debuggers and lists of processes show. The host keeps 15
/// bytes of its UTF-8, and no part of a character. False if there is no such thread.
TRS8_BTL_API bool NameThread(unsigned long thread, const System::UnicodeString& name);

} // namespace Host
