// SPDX-License-Identifier: MIT
#pragma once

#include "platform/base/System_String.h"

// Open files, by their handles.
//
// All calls answer a failure with `false`, -1 or their invalid value and set the last error. A path with an
// embedded zero fails with 123; it is never cut.
//
//     using namespace Host;
//     const System::NativeInt file = OpenFile(u"a.txt", ReadAccess, ReadAccess, Disposition::Open);
//     char bytes[100];
//     const System::Int64 count = ReadFile(file, bytes, sizeof bytes);
//     CloseFile(file);

namespace Host
{

/// What a file is opened for, and what others may have it open for meanwhile: a sum of these.
inline constexpr unsigned ReadAccess = 1;
inline constexpr unsigned WriteAccess = 2;

/// What `OpenFile` does with a file that is there, or isn't.
enum class Disposition
{
    /// The file must exist.
    Open,
    /// An existing file is emptied.
    Create,
    /// The file must not exist.
    CreateNew,
};

/// The streams that a program is started with.
enum class StandardStream
{
    Input,
    Output,
    Error,
};

/// What stands for no handle.
inline constexpr System::NativeInt InvalidHandle = -1;

/// Opens the file for `access`, while others may open it for `share`: fails with 32 if another opener of this
/// library, in whichever process, has it open in a way that `share` rules out, or doesn't share what `access`
/// wants. Programs beside this library aren't held off. Ends with `CloseFile` or with the process, however
/// that ends. Folders, and for writing files with the read-only attribute, are refused with 5.
/// The handle is the host's descriptor, always above 2 and not inherited by programs that are started.
[[nodiscard]] TRS8_BTL_API System::NativeInt OpenFile(const System::UnicodeString& file, unsigned access,
                                                      unsigned share, Disposition disposition);
/// A handle of its own onto a standard stream, at the position where that stands, be it a file, a pipe, a
/// socket or a terminal; the two move together. Fails with 6 if the stream is closed. Not inherited, and ends
/// with `CloseFile`, which leaves the standard stream open.
[[nodiscard]] TRS8_BTL_API System::NativeInt OpenStandardStream(StandardStream stream);
TRS8_BTL_API bool CloseFile(System::NativeInt handle);

/// The count done, less than `count` only at the end or, for what is no plain file, when no more is there
/// yet; -1 on a failure. At a named pipe that nobody writes to yet, waits until somebody does.
[[nodiscard]] TRS8_BTL_API System::Int64 ReadFile(System::NativeInt handle, void* buffer,
                                                  System::Int64 count);
/// As `ReadFile`, but the position stays; fails for what has no position.
[[nodiscard]] TRS8_BTL_API System::Int64 PeekFile(System::NativeInt handle, void* buffer,
                                                  System::Int64 count);
/// The count done, less than `count` only if the host failed on the way; -1 on a failure at once.
[[nodiscard]] TRS8_BTL_API System::Int64 WriteFile(System::NativeInt handle, const void* buffer,
                                                   System::Int64 count);
/// The new position; -1 on a failure. `origin` is 0 for the beginning, 1 for the position, 2 for the end.
TRS8_BTL_API System::Int64 SeekFile(System::NativeInt handle, System::Int64 offset, int origin);
/// Whether the handle is a device that gives bytes for ever, as those of zeros and of random numbers do, or
/// one that gives none: it has a position, but no size.
[[nodiscard]] TRS8_BTL_API bool IsEndless(System::NativeInt handle);
/// Whether somebody may sit in front of it.
[[nodiscard]] TRS8_BTL_API bool IsTerminal(System::NativeInt handle);
/// Cuts or lengthens the file; the position stays.
[[nodiscard]] TRS8_BTL_API bool ResizeFile(System::NativeInt handle, System::Int64 size);
/// Waits until all that was written is on the disk.
[[nodiscard]] TRS8_BTL_API bool FlushFile(System::NativeInt handle);

} // namespace Host
