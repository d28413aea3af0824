// SPDX-License-Identifier: MIT
#pragma once

#include "platform/base/System_String.h"

#include <filesystem>

// File names of this library and those of `std::filesystem`. A header of its own: that of the standard is
// large. A function of this library that takes a file name takes a path as it is; this header is for the way
// back, and for a name to keep.
//
//     Classes::TFileStream file(std::filesystem::path("data") / "log.txt", Classes::fmOpenRead);
//     const std::filesystem::path path = ToPath(file.getFileName());
//     ToFileName(path);                                      // "data/log.txt"

namespace Sysutils
{

/// The path as the name of a file. No byte of it is lost, valid UTF-8 or not.
[[nodiscard]] inline System::UnicodeString ToFileName(const std::filesystem::path& path)
{
    return path;
}

/// The file's path on the host: with `/`, drives looked up. `EInOutError` for a name that is none there, as
/// the empty text, one with a zero character or with an unknown drive.
TRS8_BTL_API std::filesystem::path ToPath(const System::UnicodeString& fileName);

} // namespace Sysutils
