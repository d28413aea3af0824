// SPDX-License-Identifier: MIT
#include "streams/BTL_STRM_SafeFile.h"

#include "platform/host/Host_Error.h"
#include "platform/host/Host_FileInfo.h"
#include "platform/host/Host_FileMove.h"
#include "platform/host/Host_OpenFile.h"
#include "platform/host/Host_ReplaceFile.h"

namespace BTL
{

using System::UnicodeString;

namespace
{

template <class Fault>
[[noreturn]] void Raise(const UnicodeString& what, const UnicodeString& path, const UnicodeString& why)
{
    throw Fault(what + u" file \"" + path + u"\". " + why);
}

template <class Fault>
[[noreturn]] void Raise(const UnicodeString& what, const UnicodeString& path)
{
    Raise<Fault>(what, path, Sysutils::FileErrorMessage(path));
}

/// What is refused although the host would let it be replaced says so; "Permission denied" would be no help
/// to one who has all permissions.
UnicodeString WhyNoFileToReplace(const UnicodeString& path)
{
    const unsigned long error = GetLastError();
    const auto info = Host::QueryFile(path);
    SetLastError(error);
    if (error == ERROR_PRIVILEGE_NOT_HELD) {
        return u"Its owner can't be kept, since only that one and root may replace it";
    }
    const System::LongWord attributes = error == ERROR_ACCESS_DENIED && info ? info->attributes : 0;
    if ((attributes & FILE_ATTRIBUTE_SYSTEM) != 0) {
        return u"It is a device, a pipe or a socket, which no file can take the place of";
    }
    if ((attributes & (FILE_ATTRIBUTE_READONLY | FILE_ATTRIBUTE_DIRECTORY)) == FILE_ATTRIBUTE_READONLY) {
        return u"It is read-only";
    }
    return Sysutils::FileErrorMessage(path);
}

/// The file to be written beside `target`.
UnicodeString Begin(const UnicodeString& path, const UnicodeString& target)
{
    UnicodeString written = target.IsEmpty() ? UnicodeString() : Host::CreateBeside(target);
    if (written.IsEmpty()) {
        Raise<Classes::EFCreateError>(u"Cannot replace", path, WhyNoFileToReplace(path));
    }
    return written;
}

} // namespace

CSafeFile::CSafeFile(const UnicodeString& path)
    : mTarget(Host::FileToReplace(path)), mWritten(Begin(path, mTarget))
{
    try {
        mStream = std::make_unique<Classes::TFileStream>(
            mWritten, static_cast<System::Word>(Classes::fmOpenWrite | Classes::fmShareExclusive));
    } catch (...) {
        DeleteFileW(mWritten);
        throw;
    }
}

CSafeFile::~CSafeFile()
{
    // What it still gathers belongs to the file that goes.
    mStream.reset();
    if (!mWritten.IsEmpty()) {
        DeleteFileW(mWritten);
    }
}

void CSafeFile::Commit()
{
    if (mWritten.IsEmpty()) {
        return;
    }
    if (!Host::FlushFile(mStream->getHandle())) {
        Raise<Classes::EWriteError>(u"Stream write error in", mWritten);
    }
    mStream->Close();
    if (!Host::MoveOnto(mWritten, mTarget)) {
        Raise<Classes::EWriteError>(u"Stream write error: cannot replace", mTarget);
    }
    mWritten = UnicodeString();
}

} // namespace BTL
