// SPDX-License-Identifier: MIT
#pragma once

#include "platform/base/System_String.h"

namespace BTL
{

/// Names a text by its key and file.
System::UnicodeString GetKeyPlace(const System::UnicodeString& key, const System::UnicodeString& file);

/// Logs what is wrong with a language file, in one line and once in the process. From any thread.
void LogNoticeOnce(const System::UnicodeString& notice);

} // namespace BTL
