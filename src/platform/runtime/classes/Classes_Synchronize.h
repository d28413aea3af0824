// SPDX-License-Identifier: MIT
#pragma once

#include "platform/runtime/typinfo/System_Closure.h"

// Work for the main thread, which serves it in its message loop.
//
//     Classes::TThread::Synchronize(nullptr, [&] { text = edit.getText(); });  // waits until it is done
//     Classes::TThread::Queue(nullptr, [=] { ShowValue(value); });             // goes on at once
//     Classes::CheckSynchronize();         // in a main thread without a message loop: does what waits

namespace System
{

/// The number of the main thread, as of `::GetCurrentThreadId`: the one that the process began with. A
/// program whose windows belong to another thread sets it before it starts threads.
TRS8_BTL_API extern unsigned long MainThreadID;

} // namespace System

namespace Classes
{

/// A method that a thread hands over. What it uses must stay until it has run.
using TThreadMethod = System::TClosure<void()>;

/// Runs in the main thread what other threads have handed over up to now, in their order: the message loop
/// and `TThread::WaitFor` do so by themselves. If nothing waits, it waits up to `milliseconds` for something.
/// True if something was run. What a method of `TThread::Queue` raises comes out here, and the rest waits
/// for the next call. Raises `EThread` outside the main thread.
TRS8_BTL_API bool CheckSynchronize(unsigned long milliseconds = 0);

/// How the main thread's message loop is told, from any thread, to call `CheckSynchronize` soon.
using FWakeMainThread = void (*)();
/// The toolkit fills it in; a program with a message loop of its own may do so before it starts threads. Null
/// where nobody needs to be told.
TRS8_BTL_API extern FWakeMainThread WakeMainThread;

} // namespace Classes
