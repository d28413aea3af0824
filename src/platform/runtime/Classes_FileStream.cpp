// SPDX-License-Identifier: MIT
#include "platform/runtime/Classes_Stream.h"

#include "platform/host/Host_Error.h"
#include "platform/host/Host_File.h"
#include "platform/runtime/System_ClassBuilder.h"

#include <algorithm>

namespace Classes
{

using System::GClassBuilder;
using System::Int64;
using System::NativeInt;
using System::TMetaClass;
using System::UnicodeString;

namespace
{

NativeInt Open(const UnicodeString& path, System::Word mode)
{
    const bool create = (mode & fmCreate) == fmCreate;
    const NativeInt handle =
        create ? Sysutils::FileCreate(path, unsigned{mode}, 0) : Sysutils::FileOpen(path, mode);
    if (handle != Host::InvalidHandle) {
        return handle;
    }
    const UnicodeString rest = u" file \"" + path + u"\". " + Sysutils::SysErrorMessage(GetLastError());
    if (create) {
        throw EFCreateError(u"Cannot create" + rest);
    }
    throw EFOpenError(u"Cannot open" + rest);
}

} // namespace

// THandleStream

TMetaClass* THandleStream::ClassRecord()
{
    static TMetaClass* const record = GClassBuilder<THandleStream>(u"THandleStream").Build();
    return record;
}

THandleStream::~THandleStream() = default;

Int64 THandleStream::Read(void* buffer, Int64 count)
{
    if (buffer == nullptr || count <= 0) {
        return 0;
    }
    return std::max(Host::ReadFile(mHandle, buffer, count), Int64{0});
}

Int64 THandleStream::Write(const void* buffer, Int64 count)
{
    if (buffer == nullptr || count <= 0) {
        return 0;
    }
    return std::max(Host::WriteFile(mHandle, buffer, count), Int64{0});
}

Int64 THandleStream::Seek(Int64 offset, TSeekOrigin origin)
{
    return Host::SeekFile(mHandle, offset, origin);
}

void THandleStream::setSize(Int64 size)
{
    size = std::max(size, Int64{0});
    if (!Host::ResizeFile(mHandle, size)) {
        throw EStreamError(Sysutils::SysErrorMessage(GetLastError()));
    }
    Seek(size, soBeginning);
}

// TFileStream

TMetaClass* TFileStream::ClassRecord()
{
    static TMetaClass* const record = GClassBuilder<TFileStream>(u"TFileStream").Build();
    return record;
}

TFileStream::TFileStream(const UnicodeString& path, System::Word mode)
    : THandleStream(Open(path, mode)), mFileName(path)
{
}

TFileStream::~TFileStream()
{
    Sysutils::FileClose(getHandle());
}

} // namespace Classes
