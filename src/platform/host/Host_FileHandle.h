// SPDX-License-Identifier: MIT
#pragma once

#include "platform/runtime/System_String.h"

#include <cstdint>

// Open files of the host as plain handles; -1 is no handle. A call that fails gives -1 or `false`
// and sets the last error.
namespace Host
{

enum class FileAccess
{
    Read,
    Write,
    ReadWrite,
    /// Makes the file, or empties it.
    Create
};

/// -1 with the last error set if the host refuses.
std::intptr_t OpenFileHandle(const System::UnicodeString& path, FileAccess access);
System::Int64 ReadFileHandle(std::intptr_t handle, void* buffer, System::Int64 count);
System::Int64 WriteFileHandle(std::intptr_t handle, const void* buffer, System::Int64 count);
/// `origin` is 0 for the beginning, 1 for the position, 2 for the end.
System::Int64 SeekFileHandle(std::intptr_t handle, System::Int64 offset, int origin);
bool ResizeFileHandle(std::intptr_t handle, System::Int64 size);
void CloseFileHandle(std::intptr_t handle);

} // namespace Host
