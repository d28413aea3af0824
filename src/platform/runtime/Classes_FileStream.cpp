// SPDX-License-Identifier: MIT
#include "platform/runtime/Classes_Stream.h"

#include "platform/host/Host_Error.h"
#include "platform/host/Host_FileHandle.h"
#include "platform/runtime/System_ClassBuilder.h"

#include <algorithm>
#include <array>

namespace Classes
{

using System::GClassBuilder;
using System::Int64;
using System::TMetaClass;
using System::UnicodeString;

namespace
{

UnicodeString LastErrorText()
{
    std::array<System::WideChar, 512> text{};
    const unsigned long length = FormatMessageW(FORMAT_MESSAGE_FROM_SYSTEM, nullptr, GetLastError(), 0,
                                                text.data(), text.size(), nullptr);
    return {text.data(), static_cast<int>(length)};
}

std::intptr_t Open(const UnicodeString& path, System::Word mode)
{
    const bool create = (mode & fmCreate) == fmCreate;
    const auto access = create                      ? Host::FileAccess::Create
                        : (mode & 3) == fmOpenRead  ? Host::FileAccess::Read
                        : (mode & 3) == fmOpenWrite ? Host::FileAccess::Write
                                                    : Host::FileAccess::ReadWrite;
    const std::intptr_t handle = Host::OpenFileHandle(path, access);
    if (handle >= 0) {
        return handle;
    }
    const UnicodeString reason = LastErrorText();
    if (create) {
        throw EFCreateError(u"Cannot create file \"" + path + u"\". " + reason);
    }
    throw EFOpenError(u"Cannot open file \"" + path + u"\". " + reason);
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
    return std::max(Host::ReadFileHandle(mHandle, buffer, count), Int64{0});
}

Int64 THandleStream::Write(const void* buffer, Int64 count)
{
    if (buffer == nullptr || count <= 0) {
        return 0;
    }
    return std::max(Host::WriteFileHandle(mHandle, buffer, count), Int64{0});
}

Int64 THandleStream::Seek(Int64 offset, TSeekOrigin origin)
{
    return Host::SeekFileHandle(mHandle, offset, origin);
}

void THandleStream::setSize(Int64 size)
{
    size = std::max(size, Int64{0});
    if (!Host::ResizeFileHandle(mHandle, size)) {
        throw EStreamError(u"The size of the file can't be changed");
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
    Host::CloseFileHandle(getHandle());
}

} // namespace Classes
