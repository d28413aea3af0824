// SPDX-License-Identifier: MIT
#pragma once

#include "platform/Export.h"
#include "platform/base/System_Types.h"

// The version data that a program, a library or a module carries, as the CMake function `trs8_btl_version`
// puts it there: texts by their keys, in one language.
//
//     if (const unsigned long size = GetFileVersionInfoSizeW(file, nullptr)) {
//         std::vector<std::uint32_t> block(size / 4 + 1);
//         const void* text = nullptr;
//         unsigned length = 0;
//         GetFileVersionInfoW(file, 0, size, block.data()) &&
//             VerQueryValueA(block.data(), "StringFileInfo\\000004E4\\FileVersion", &text, &length);
//     }

/// The count of bytes that `GetFileVersionInfoW` needs for the file; 0 for one without version data. The last
/// error is then that of the host if the file can't be read, 11 if it is no ELF file, 1168 if it is one
/// without the data. `handle` may be null and gets 0.
[[nodiscard]] TRS8_BTL_API unsigned long GetFileVersionInfoSizeW(const System::WideChar* file,
                                                                 unsigned long* handle);

/// Reads the version data of the file into `buffer`, which must be aligned as a number of 32 bits. False, and
/// it stays as it is, with the last error of `GetFileVersionInfoSizeW`, or 122 if the data need more than
/// `size` bytes. `handle` isn't looked at.
TRS8_BTL_API bool GetFileVersionInfoW(const System::WideChar* file, unsigned long handle, unsigned long size,
                                      void* buffer);

/// Looks into a `block` that `GetFileVersionInfoW` filled. "VarFileInfo\Translation" gives two numbers of 16
/// bits, language and code page, with the length 4; "StringFileInfo\LLLLCCCC\KEY", where the language and the
/// code page stand as hexadecimal digits, the text of the key in the code page 1252 with a zero behind it,
/// which the length counts. A `\` may stand in front; case doesn't matter. What `value` gets lies in the
/// block. False, with `value` and `length` as they were, for anything that isn't there.
TRS8_BTL_API bool VerQueryValueA(const void* block, const char* path, const void** value, unsigned* length);
