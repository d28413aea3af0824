// SPDX-License-Identifier: MIT
#pragma once

#include "platform/base/System_Owner.h"
#include "platform/runtime/syncobjs/Syncobjs_Mutex.h"

namespace WIN
{

/// A mutex by whose name processes of all users know each other. Any text is a name.
///
///     const WIN::CMutex station(u"station");              // the thread owns it if it is new
///     if (station.getAlreadyExists()) {
///         return;                                         // another one runs
///     }
class TRS8_BTL_API CMutex
{
public:
    /// Keeps the name and calls `Create`.
    explicit CMutex(const System::UnicodeString& name);
    CMutex(const CMutex&) = delete;
    CMutex& operator=(const CMutex&) = delete;
    ~CMutex();

    /// Makes the mutex, or opens it if it is there; does nothing if this object already has it. The thread
    /// owns a new one. A failure goes to `ThrowLastError` and leaves the object closed.
    void Create();
    /// Opens the mutex, and owns it not; does nothing if this object already has it. A failure, also that
    /// there is none of the name, goes to `ThrowLastError` and leaves the object closed.
    void Open();
    /// Lets the mutex go. It ends with its last holder, and so the name can be made anew.
    void Close();

    const System::UnicodeString& getName() const noexcept { return mName; }
    /// To wait for and give back; null when closed, else owned by this object.
    Syncobjs::TMutex* getMutex() const noexcept { return mMutex.get(); }
    /// Whether the mutex was there before this object made or opened it; false when closed.
    bool getAlreadyExists() const noexcept { return mAlreadyExists; }

private:
    void Take(System::GOwner<Syncobjs::TMutex> mutex);

    System::UnicodeString mName;
    System::GOwner<Syncobjs::TMutex> mMutex;
    bool mAlreadyExists = false;
};

} // namespace WIN
