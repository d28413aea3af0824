// SPDX-License-Identifier: MIT
#include "platform/runtime/classes/Classes_Stream.h"

#include "platform/host/Host_Error.h"
#include "platform/host/Host_FileBuffer.h"
#include "platform/host/Host_OpenFile.h"
#include "platform/runtime/typinfo/System_ClassBuilder.h"

#include <algorithm>
#include <typeinfo>
#include <utility>

namespace Classes
{

using System::GClassBuilder;
using System::Int64;
using System::NativeInt;
using System::TMetaClass;
using System::UnicodeString;

namespace
{

constexpr Int64 PeekSize = 4096;

NativeInt Open(const UnicodeString& path, System::Word mode)
{
    const bool create = (mode & fmCreate) == fmCreate;
    const NativeInt handle =
        create ? Sysutils::FileCreate(path, unsigned{mode}, 0) : Sysutils::FileOpen(path, mode);
    if (handle != Host::InvalidHandle) {
        return handle;
    }
    const UnicodeString rest = u" file \"" + path + u"\". " + Sysutils::FileErrorMessage(path);
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

THandleStream::THandleStream(NativeInt handle) noexcept : mHandle(handle) {}

THandleStream::~THandleStream() = default;

Int64 THandleStream::Read(void* buffer, Int64 count)
{
    if (buffer == nullptr || count <= 0) {
        return 0;
    }
    if (mAheadSize > 0) {
        const auto done = std::min(static_cast<std::size_t>(count), mAheadSize);
        std::copy_n(mPeeked.get() + mAheadStart, done, static_cast<char*>(buffer));
        PassWindow(static_cast<Int64>(done));
        return static_cast<Int64>(done);
    }
    if (!mBuffer) {
        return std::max(Host::ReadFile(mHandle, buffer, count), Int64{0});
    }
    CheckGathered();
    const Int64 done = mBuffer->Read(buffer, count);
    CheckGathered();
    return done;
}

Int64 THandleStream::Write(const void* buffer, Int64 count)
{
    if (buffer == nullptr || count <= 0) {
        return 0;
    }
    if (!mBuffer) {
        return std::max(Host::WriteFile(mHandle, buffer, count), Int64{0});
    }
    CheckGathered();
    const Int64 done = mBuffer->Write(buffer, count);
    CheckGathered();
    return done;
}

Int64 THandleStream::Seek(Int64 offset, TSeekOrigin origin)
{
    if (!mBuffer) {
        return Host::SeekFile(mHandle, offset, origin);
    }
    CheckGathered();
    const Int64 position = mBuffer->Seek(offset, origin);
    CheckGathered();
    return position;
}

Int64 THandleStream::getSize() const
{
    if (!mBuffer) {
        return TStream::getSize();
    }
    const Int64 size = mBuffer->Size();
    CheckGathered();
    return size;
}

void THandleStream::setSize(Int64 size)
{
    size = std::max(size, Int64{0});
    const bool done = mBuffer ? mBuffer->Resize(size) : Host::ResizeFile(mHandle, size);
    if (!done) {
        throw EStreamError(Sysutils::SysErrorMessage(GetLastError()));
    }
    Seek(size, soBeginning);
}

void THandleStream::Flush() const
{
    if (mBuffer) {
        mBuffer->Flush();
        CheckGathered();
    }
}

NativeInt THandleStream::getHandle() const
{
    Flush();
    mBuffer.reset();
    mIsShared = true;
    return mHandle;
}

NativeInt THandleStream::ReleaseHandle() noexcept
{
    return std::exchange(mHandle, Host::InvalidHandle);
}

void THandleStream::BeginBuffer()
{
    mBuffer = Host::FileBuffer::Attach(mHandle);
    mIsShared = false;
}

void THandleStream::EndBuffer() noexcept
{
    mBuffer.reset();
}

/// A class derived elsewhere may read in another way.
bool THandleStream::ShowsEnd() const noexcept
{
    return typeid(*this) == typeid(TFileStream) || typeid(*this) == typeid(THandleStream);
}

bool THandleStream::IsEndless() const noexcept
{
    return !mBuffer && Host::IsEndless(mHandle);
}

std::string_view THandleStream::Window()
{
    if (!ShowsEnd()) {
        return {};
    }
    if (!mBuffer) {
        return Peek();
    }
    CheckGathered();
    const std::string_view bytes = mBuffer->Window();
    CheckGathered();
    return bytes;
}

void THandleStream::PassWindow(Int64 count)
{
    if (mAheadSize == 0) {
        Seek(count, soCurrent);
        return;
    }
    mAheadStart += static_cast<std::size_t>(count);
    mAheadSize -= static_cast<std::size_t>(count);
}

/// A look at what comes, taken anew each time.
std::string_view THandleStream::Peek()
{
    if (!mPeeked) {
        mPeeked = std::make_unique_for_overwrite<char[]>(PeekSize);
    }
    if (mAheadSize > 0 || Host::SeekFile(mHandle, 0, soCurrent) < 0) {
        return Ahead();
    }
    const Int64 count = Host::PeekFile(mHandle, mPeeked.get(), PeekSize);
    return {mPeeked.get(), static_cast<std::size_t>(std::max(count, Int64{0}))};
}

/// What a handle that can't seek has next. That can't be given back to it, so that a handle which others use
/// too loses no more than the byte that must be known.
std::string_view THandleStream::Ahead()
{
    if (mAheadSize == 0) {
        const Int64 count = Host::ReadFile(mHandle, mPeeked.get(), mIsShared ? 1 : PeekSize);
        mAheadStart = 0;
        mAheadSize = static_cast<std::size_t>(std::max(count, Int64{0}));
    }
    return {mPeeked.get() + mAheadStart, mAheadSize};
}

/// Tells the user of the stream that gathered bytes were lost.
void THandleStream::CheckGathered() const
{
    // Looked at with each operation, and nearly never true.
    if (mBuffer->HasError()) {
        const unsigned long error = mBuffer->TakeError();
        SetLastError(error);
        RaiseWriteError();
    }
}

void THandleStream::RaiseWriteError() const
{
    const unsigned long error = GetLastError();
    throw EWriteError(u"Stream write error" + FileInMessage() +
                      (error == ERROR_SUCCESS ? UnicodeString() : u". " + Sysutils::SysErrorMessage(error)));
}

UnicodeString THandleStream::FileInMessage() const
{
    return {};
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
    BeginBuffer();
}

TFileStream::~TFileStream()
{
    EndBuffer();
    if (const NativeInt handle = ReleaseHandle(); handle != Host::InvalidHandle) {
        Host::CloseFile(handle);
    }
}

void TFileStream::Close()
{
    Flush();
    EndBuffer();
    const NativeInt handle = ReleaseHandle();
    if (handle != Host::InvalidHandle && !Host::CloseFile(handle)) {
        RaiseWriteError();
    }
}

UnicodeString TFileStream::FileInMessage() const
{
    return u" in file \"" + mFileName + u"\"";
}

} // namespace Classes
