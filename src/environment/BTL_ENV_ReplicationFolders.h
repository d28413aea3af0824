// SPDX-License-Identifier: MIT
#pragma once

#include "platform/base/System_String.h"

namespace BTL
{

// The folders through which programs hand data to each other. Of the main thread.
//
//     BTL::SetReplicationPath(u"\\srv\\exchange");
//     const auto inbox = BTL::GetReplicationPath(u"Inbox");       // "\srv\exchange\Inbox\", made

/// Sets the base folder, without blanks around it and with a final separator. It isn't made here. An empty
/// text stands for the default again.
TRS8_BTL_API void SetReplicationPath(const System::UnicodeString& path);
/// The base folder; the default, "Replication" in the user's data, is made when it is first asked for.
[[nodiscard]] TRS8_BTL_API System::UnicodeString GetReplicationPath();
/// `name` in the base folder, without a final separator. It is made at each call.
[[nodiscard]] TRS8_BTL_API System::UnicodeString GetReplicationDir(const System::UnicodeString& name);
/// As `GetReplicationDir`, but with a final separator.
[[nodiscard]] TRS8_BTL_API System::UnicodeString GetReplicationPath(const System::UnicodeString& name);
/// "Temp" in the base folder.
[[nodiscard]] TRS8_BTL_API System::UnicodeString GetReplicationTemp2Path();

} // namespace BTL
