// SPDX-License-Identifier: MIT
#pragma once

#include "platform/base/System_String.h"
#include "platform/host/objects/Host_Handle.h"

namespace WIN
{

/// What is done with the bytes of a shared memory.
enum class ESharedMemoryAccess : unsigned long
{
    /// Changes stay with this object.
    Copy = 1,
    Write = 2,
    Read = 4,
    All = 0xF001F,
};

/// Memory that processes of all users share by a name; any text is one. The first bytes are zero. It lives as
/// long as somebody has it. Nothing guards the bytes against others who use them at the same time.
///
///     WIN::CSharedMemory memory(u"progress", sizeof(TProgress));
///     memory.CreateOrOpen();
///     static_cast<TProgress*>(memory.getView())->position = 5;
///
///     WIN::CSharedMemory other(u"progress", sizeof(TProgress));       // in another program
///     if (other.Open(WIN::ESharedMemoryAccess::Read)) { ... }
class TRS8_BTL_API CSharedMemory
{
public:
    /// Keeps name and size in bytes; nothing is made yet.
    CSharedMemory(const System::UnicodeString& name, unsigned size);
    CSharedMemory(const CSharedMemory&) = delete;
    CSharedMemory& operator=(const CSharedMemory&) = delete;
    /// Closes the memory; a failure is passed over.
    ~CSharedMemory();

    /// Takes the memory of the name, or makes it. Does nothing if this object already has it, the size is 0
    /// or the name is empty. A failure goes to `ThrowLastError` and leaves the object closed, also that the
    /// memory is there and smaller.
    void CreateOrOpen();

    /// Takes the memory of the name for reading and writing. False if there is none, the size is 0 or the
    /// name is empty; true if this object already has it. Any other failure goes to `ThrowLastError`, leaves
    /// the object closed and gives false.
    bool Open() { return Open(ESharedMemoryAccess::All); }
    /// As `Open`, for this access alone.
    bool Open(ESharedMemoryAccess access) { return Open(static_cast<unsigned long>(access)); }
    /// As `Open`, for an access in the numbers of `MapViewOfFile`.
    bool Open(unsigned long access);

    /// Lets the memory go; a failure goes to `ThrowLastError`.
    void Close();

    const System::UnicodeString& getName() const noexcept { return mName; }
    HANDLE getMapping() const noexcept { return mMapping; }
    unsigned getSize() const noexcept { return mSize; }
    /// The shared bytes, `getSize` of them; null when closed.
    void* getView() const noexcept { return mView; }
    /// Whether `CreateOrOpen` found the memory there.
    bool getAlreadyExists() const noexcept { return mAlreadyExists; }

private:
    bool MapView(unsigned long access);

    System::UnicodeString mName;
    HANDLE mMapping = nullptr;
    unsigned mSize;
    void* mView = nullptr;
    bool mAlreadyExists = false;
};

} // namespace WIN
