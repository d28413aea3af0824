// SPDX-License-Identifier: MIT
#pragma once

#include "platform/base/System_String.h"

namespace BTL
{

// Programs that an installer has registered on this machine: in the machine's part of the registry, see
// `Registry::TRegistry`, under the key "SOFTWARE\Microsoft\Windows\CurrentVersion\Uninstall" with the
// program's id and "_is1", its folder as the value "Inno Setup: App Path".
//
//     if (BTL::AppIsInstalled(u"{2F6A-77}")) {
//         WIN::ShellOpen(BTL::AppRegInstalledPath(u"{2F6A-77}") + u"readme.txt");
//     }

/// The folder of the program with a separator added; empty if it isn't registered. An entry without a folder
/// gives the separator alone; `Registry::ERegistryException` for one that is no text.
[[nodiscard]] TRS8_BTL_API System::UnicodeString AppRegInstalledPath(const System::UnicodeString& appId);
/// Whether `AppRegInstalledPath` isn't empty.
[[nodiscard]] TRS8_BTL_API bool AppIsInstalled(const System::UnicodeString& appId);

} // namespace BTL
