// SPDX-License-Identifier: MIT
#pragma once

#include "platform/base/System_String.h"

namespace Host
{

/// The folders that every user or machine has, by the numbers under which programs ask for them and store
/// them.
enum ESpecialFolder : int
{
    DesktopFolder = 0,
    DocumentsFolder = 5,
    MusicFolder = 13,
    VideosFolder = 14,
    DesktopFilesFolder = 16,
    TemplatesFolder = 21,
    /// Settings of the user's programs.
    UserSettingsFolder = 26,
    /// Data of the user's programs.
    UserDataFolder = 28,
    /// Data that all users of the machine share.
    CommonDataFolder = 35,
    ProgramFilesFolder = 38,
    PicturesFolder = 39,
    /// The home folder.
    ProfileFolder = 40,
    CommonDocumentsFolder = 46,
};

/// The folder of that number, without a final separator; empty for a number that isn't in `ESpecialFolder`.
/// The user's folders follow the XDG variables and `user-dirs.dirs`. Nothing is made, and it may not exist.
///
///     const auto settings = Host::SpecialFolder(Host::UserSettingsFolder);        // \home\u\.config
[[nodiscard]] TRS8_BTL_API System::UnicodeString SpecialFolder(int number);

} // namespace Host
