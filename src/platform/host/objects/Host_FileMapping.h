// SPDX-License-Identifier: MIT
#pragma once

#include "platform/base/System_String.h"
#include "platform/host/objects/Host_Handle.h"
#include "platform/host/objects/Host_Security.h"

#include <cstddef>

// Memory that processes share by name.
//
//     const HANDLE mapping = CreateFileMappingW(INVALID_HANDLE_VALUE, nullptr, PAGE_READWRITE, 0, 4096,
//     u"data"); void* const view = MapViewOfFile(mapping, FILE_MAP_ALL_ACCESS, 0, 0, 4096);
//     ...
//     UnmapViewOfFile(view);
//     CloseHandle(mapping);
//
// Any text is a name, and names are apart by each of their characters. The memory and its name live as long
// as some process has a handle or a view; what a crashed process left is never taken for an object.

inline constexpr unsigned long PAGE_READONLY = 2;
inline constexpr unsigned long PAGE_READWRITE = 4;

/// A view of one's own, whose changes nobody else sees.
inline constexpr unsigned long FILE_MAP_COPY = 1;
inline constexpr unsigned long FILE_MAP_WRITE = 2;
inline constexpr unsigned long FILE_MAP_READ = 4;
inline constexpr unsigned long FILE_MAP_ALL_ACCESS = 0xF001F;

/// Makes a mapping of `sizeHigh` * 2 to the 32 + `sizeLow` zero bytes, all of which are there from the begin,
/// or opens that of the name, whatever its size, with `ERROR_ALREADY_EXISTS` as the last error, which is 0
/// for a new one. An empty name makes one that nobody else can open. Null on a failure: the last error is 6
/// if `file` isn't `INVALID_HANDLE_VALUE` or the name is in use for another kind of object, 5 if it is that
/// of another user alone, 87 for no size or another `protection`, 112 if there is no room.
TRS8_BTL_API HANDLE CreateFileMappingW(HANDLE file, const SECURITY_ATTRIBUTES* attributes,
                                       unsigned long protection, unsigned long sizeHigh,
                                       unsigned long sizeLow, const System::UnicodeString& name);

/// Opens the mapping of the name. Null, with the last error 2 if there is none, or as with
/// `CreateFileMappingW`. `access` bounds that of the views; `inherit` is not looked at.
TRS8_BTL_API HANDLE OpenFileMappingW(unsigned long access, bool inherit, const System::UnicodeString& name);

/// Makes `size` bytes of the mapping from the offset on visible, all from there on for 0. The offset is a
/// multiple of 65536. Null on a failure: the last error is 5 for a view that reaches beyond the mapping or
/// that the handle doesn't allow, 1132 for another offset. The view stays good when the handle is closed.
TRS8_BTL_API void* MapViewOfFile(HANDLE mapping, unsigned long access, unsigned long offsetHigh,
                                 unsigned long offsetLow, std::size_t size);

/// Ends the view that begins at the address. False, with the last error 487, if there is none.
TRS8_BTL_API bool UnmapViewOfFile(const void* view);
