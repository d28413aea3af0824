// SPDX-License-Identifier: MIT
#include "os/WIN_SharedMemory.h"

#include "os/WIN_LastError.h"
#include "os/internal/WIN_Everybody.h"
#include "platform/host/Host_Error.h"
#include "platform/host/objects/Host_FileMapping.h"

#include <utility>

namespace WIN
{

CSharedMemory::CSharedMemory(const System::UnicodeString& name, unsigned size) : mName(name), mSize(size) {}

CSharedMemory::~CSharedMemory()
{
    try {
        Close();
    } catch (const XLastError&) {
        // Nobody could handle it here.
    }
}

void CSharedMemory::CreateOrOpen()
{
    if (mMapping != nullptr || mSize == 0 || mName.IsEmpty()) {
        return;
    }
    const CEverybody everybody;
    mMapping =
        CreateFileMappingW(INVALID_HANDLE_VALUE, everybody.getAttributes(), PAGE_READWRITE, 0, mSize, mName);
    if (mMapping == nullptr) {
        ThrowLastError();
        return;
    }
    const bool existed = ::GetLastError() == ERROR_ALREADY_EXISTS;
    mAlreadyExists = MapView(FILE_MAP_ALL_ACCESS) && existed;
}

bool CSharedMemory::Open(unsigned long access)
{
    if (mSize == 0 || mName.IsEmpty()) {
        return false;
    }
    if (mMapping != nullptr && mView != nullptr) {
        return true;
    }
    mMapping = OpenFileMappingW(access, false, mName);
    if (mMapping == nullptr) {
        if (::GetLastError() != ERROR_FILE_NOT_FOUND) {
            ThrowLastError();
        }
        return false;
    }
    mAlreadyExists = false;
    return MapView(access);
}

bool CSharedMemory::MapView(unsigned long access)
{
    mView = MapViewOfFile(mMapping, access, 0, 0, mSize);
    if (mView != nullptr) {
        return true;
    }
    const unsigned long reason = ::GetLastError();
    CloseHandle(std::exchange(mMapping, nullptr));
    ::SetLastError(reason);
    ThrowLastError();
    return false;
}

void CSharedMemory::Close()
{
    mAlreadyExists = false;
    if (mView != nullptr && !UnmapViewOfFile(std::exchange(mView, nullptr))) {
        ThrowLastError();
    }
    if (mMapping != nullptr && !CloseHandle(std::exchange(mMapping, nullptr))) {
        ThrowLastError();
    }
}

} // namespace WIN
