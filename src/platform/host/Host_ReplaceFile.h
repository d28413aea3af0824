// SPDX-License-Identifier: MIT
#pragma once

#include "platform/base/System_String.h"

// A file gets a new content in one step: it is written beside the old one and then takes its place.
//
// All calls answer a failure with `false`, -1 or their invalid value and set the last error. A path with an
// embedded zero fails with 123; it is never cut.
//
//     const UnicodeString target = Host::FileToReplace(path);
//     const UnicodeString written = Host::CreateBeside(target);
//     // ... write it, Host::FlushFile, Host::CloseFile ...
//     Host::MoveOnto(written, target);

namespace Host
{

/// The plain file, which needn't exist yet, that `file` leads to along symbolic links. Empty on a failure:
/// folders, devices, pipes and files with the read-only attribute are refused with 5.
[[nodiscard]] TRS8_BTL_API System::UnicodeString FileToReplace(const System::UnicodeString& file);

/// Makes an empty file of a free name in the folder of `target`, with its owner, access list and permissions
/// if it exists. Gives the name; empty on a failure, with 1314 if they can't be kept.
[[nodiscard]] TRS8_BTL_API System::UnicodeString CreateBeside(const System::UnicodeString& target);

/// Moves a file of `CreateBeside` to `target`, so that a crash of the machine leaves one or the other. If it
/// fails, `target` is as it was, unless only the folder couldn't be brought to the disk.
[[nodiscard]] TRS8_BTL_API bool MoveOnto(const System::UnicodeString& file,
                                         const System::UnicodeString& target);

} // namespace Host
