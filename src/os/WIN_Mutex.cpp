// SPDX-License-Identifier: MIT
#include "os/WIN_Mutex.h"

#include "os/WIN_LastError.h"
#include "os/internal/WIN_Everybody.h"
#include "platform/host/Host_Error.h"
#include "platform/host/objects/Host_Mutex.h"

namespace WIN
{

CMutex::CMutex(const System::UnicodeString& name) : mName(name)
{
    Create();
}

CMutex::~CMutex() = default;

void CMutex::Create()
{
    if (mMutex == nullptr) {
        const CEverybody everybody;
        Take(System::MakeOwner<Syncobjs::TMutex>(everybody.getAttributes(), true, mName));
    }
}

void CMutex::Open()
{
    if (mMutex == nullptr) {
        Take(System::MakeOwner<Syncobjs::TMutex>(MUTEX_ALL_ACCESS, false, mName));
    }
}

void CMutex::Close()
{
    mMutex = nullptr;
    mAlreadyExists = false;
}

void CMutex::Take(System::GOwner<Syncobjs::TMutex> mutex)
{
    if (mutex->getHandle() == nullptr) {
        ::SetLastError(mutex->getLastError());
        ThrowLastError();
        return;
    }
    mMutex = std::move(mutex);
    mAlreadyExists = mMutex->getLastError() == ERROR_ALREADY_EXISTS;
}

} // namespace WIN
