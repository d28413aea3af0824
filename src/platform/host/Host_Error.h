// SPDX-License-Identifier: MIT
#pragma once

#include "platform/Export.h"
#include "platform/base/System_Types.h"

// The numbers under which a failed call reports its reason.
inline constexpr unsigned long ERROR_SUCCESS = 0;
inline constexpr unsigned long ERROR_INVALID_FUNCTION = 1;
inline constexpr unsigned long ERROR_FILE_NOT_FOUND = 2;
inline constexpr unsigned long ERROR_PATH_NOT_FOUND = 3;
inline constexpr unsigned long ERROR_TOO_MANY_OPEN_FILES = 4;
inline constexpr unsigned long ERROR_ACCESS_DENIED = 5;
inline constexpr unsigned long ERROR_INVALID_HANDLE = 6;
inline constexpr unsigned long ERROR_NOT_ENOUGH_MEMORY = 8;
inline constexpr unsigned long ERROR_BAD_FORMAT = 11;
inline constexpr unsigned long ERROR_INVALID_DATA = 13;
inline constexpr unsigned long ERROR_OUTOFMEMORY = 14;
inline constexpr unsigned long ERROR_INVALID_DRIVE = 15;
inline constexpr unsigned long ERROR_NOT_SAME_DEVICE = 17;
inline constexpr unsigned long ERROR_NO_MORE_FILES = 18;
inline constexpr unsigned long ERROR_WRITE_PROTECT = 19;
inline constexpr unsigned long ERROR_NOT_READY = 21;
inline constexpr unsigned long ERROR_GEN_FAILURE = 31;
inline constexpr unsigned long ERROR_SHARING_VIOLATION = 32;
inline constexpr unsigned long ERROR_LOCK_VIOLATION = 33;
inline constexpr unsigned long ERROR_HANDLE_EOF = 38;
inline constexpr unsigned long ERROR_NOT_SUPPORTED = 50;
inline constexpr unsigned long ERROR_FILE_EXISTS = 80;
inline constexpr unsigned long ERROR_INVALID_PARAMETER = 87;
inline constexpr unsigned long ERROR_BROKEN_PIPE = 109;
inline constexpr unsigned long ERROR_DISK_FULL = 112;
inline constexpr unsigned long ERROR_CALL_NOT_IMPLEMENTED = 120;
inline constexpr unsigned long ERROR_INSUFFICIENT_BUFFER = 122;
inline constexpr unsigned long ERROR_INVALID_NAME = 123;
inline constexpr unsigned long ERROR_MOD_NOT_FOUND = 126;
inline constexpr unsigned long ERROR_PROC_NOT_FOUND = 127;
inline constexpr unsigned long ERROR_NEGATIVE_SEEK = 131;
inline constexpr unsigned long ERROR_DIR_NOT_EMPTY = 145;
inline constexpr unsigned long ERROR_BUSY = 170;
inline constexpr unsigned long ERROR_ALREADY_EXISTS = 183;
inline constexpr unsigned long ERROR_ENVVAR_NOT_FOUND = 203;
inline constexpr unsigned long ERROR_FILENAME_EXCED_RANGE = 206;
inline constexpr unsigned long ERROR_FILE_TOO_LARGE = 223;
inline constexpr unsigned long ERROR_MORE_DATA = 234;
inline constexpr unsigned long WAIT_TIMEOUT = 258;
inline constexpr unsigned long ERROR_NO_MORE_ITEMS = 259;
inline constexpr unsigned long ERROR_DIRECTORY = 267;
inline constexpr unsigned long ERROR_NOT_OWNER = 288;
inline constexpr unsigned long ERROR_PARTIAL_COPY = 299;
inline constexpr unsigned long ERROR_MR_MID_NOT_FOUND = 317;
inline constexpr unsigned long ERROR_INVALID_ADDRESS = 487;
inline constexpr unsigned long ERROR_ARITHMETIC_OVERFLOW = 534;
inline constexpr unsigned long ERROR_OPERATION_ABORTED = 995;
inline constexpr unsigned long ERROR_IO_INCOMPLETE = 996;
inline constexpr unsigned long ERROR_IO_PENDING = 997;
inline constexpr unsigned long ERROR_POSSIBLE_DEADLOCK = 1131;
inline constexpr unsigned long ERROR_MAPPED_ALIGNMENT = 1132;
inline constexpr unsigned long ERROR_NOT_FOUND = 1168;
inline constexpr unsigned long ERROR_CANCELLED = 1223;
inline constexpr unsigned long ERROR_UNKNOWN_REVISION = 1305;
inline constexpr unsigned long ERROR_PRIVILEGE_NOT_HELD = 1314;
inline constexpr unsigned long ERROR_NO_SUCH_USER = 1317;
inline constexpr unsigned long ERROR_NO_SYSTEM_RESOURCES = 1450;
inline constexpr unsigned long ERROR_INVALID_WINDOW_HANDLE = 1400;
inline constexpr unsigned long ERROR_TIMEOUT = 1460;
inline constexpr unsigned long ERROR_DEVICE_REMOVED = 1617;
inline constexpr unsigned long ERROR_CANT_RESOLVE_FILENAME = 1921;

/// Asks `FormatMessageW` for the text of a code of the system.
inline constexpr unsigned long FORMAT_MESSAGE_FROM_SYSTEM = 4096;

/// The reason of the thread's last failed call; 0 in a new thread. Calls that succeed leave it alone.
///
///     if (!DeleteFileW(u"a.txt") && GetLastError() != ERROR_FILE_NOT_FOUND) {
///         WIN::ThrowLastError();
///     }
TRS8_BTL_API unsigned long GetLastError();
TRS8_BTL_API void SetLastError(unsigned long code);

/// Writes the host's description of `messageId` with a zero behind it to `buffer`, which has room for `size`
/// characters in all, and gives the count of characters without the zero. The text ends without a line end.
/// The text is in the language of the process; `source`, `languageId` and `arguments` are not looked at.
/// On a failure the result is 0, the buffer stays, and the last error is 317 for an unknown code, 122 for a
/// buffer too small, 87 for a null buffer or for `flags` without `FORMAT_MESSAGE_FROM_SYSTEM`.
TRS8_BTL_API unsigned long FormatMessageW(unsigned long flags, const void* source, unsigned long messageId,
                                          unsigned long languageId, System::WideChar* buffer,
                                          unsigned long size, void* arguments);

namespace Host
{

/// Marks a code that carries an `errno` of the host for which there is no number of its own: the lower bits
/// are that value, so that nothing of the reason is lost.
inline constexpr unsigned long HostErrorMark = 0x20000000;

/// The number for an `errno`; 0 for 0.
[[nodiscard]] TRS8_BTL_API unsigned long ErrorFromErrno(int hostError);

/// Sets the last error and gives `false`, as the result of a failed call.
TRS8_BTL_API bool Fail(unsigned long code);

/// `Fail` with the number for the current `errno`.
TRS8_BTL_API bool FailErrno();

} // namespace Host
