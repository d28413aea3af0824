// SPDX-License-Identifier: MIT
#pragma once

#include "platform/base/System_String.h"

/// The number of this process.
TRS8_BTL_API unsigned long GetCurrentProcessId();

/// An address in a program or library, which stands for it.
using HINSTANCE = const void*;

/// Writes the full path of a module with a zero behind it to `buffer`, which has room for `size` characters:
/// of the running program for null, else of the program or library that holds the address `module`. Gives the
/// count of characters; 0 with the last error 126 if no module holds it. A longer path is cut: the result is
/// `size` then, and the last error 122.
///
///     System::WideChar path[1000];
///     const unsigned long length = GetModuleFileNameW(nullptr, path, 1000);   // of the program
TRS8_BTL_API unsigned long GetModuleFileNameW(HINSTANCE module, System::WideChar* buffer, unsigned long size);

namespace Host
{

/// Where the program or library that holds `address` begins in memory, which no other one shares; null if
/// none holds it.
[[nodiscard]] TRS8_BTL_API const void* ModuleOf(const void* address) noexcept;

/// Keeps the program or library that holds `address` in memory until the process ends, however often it is
/// closed. An address that none holds is ignored.
TRS8_BTL_API void KeepModule(const void* address) noexcept;

/// The full path of the running program, links resolved; empty on a failure.
[[nodiscard]] TRS8_BTL_API System::UnicodeString ProgramPath();

} // namespace Host
