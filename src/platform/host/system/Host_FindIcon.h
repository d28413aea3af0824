// SPDX-License-Identifier: MIT
#pragma once

#include "platform/base/System_String.h"

namespace Host
{

/// The picture that the desktop shows for `file`: that of its type, or of the program that opens it; for a
/// program that of its own name. A PNG file of about 32 pixels, by its full path; empty, with the last error
/// set, for a missing file and where the desktop has none.
///
///     const System::UnicodeString picture = Host::FindIcon(u"manual.pdf");
[[nodiscard]] TRS8_BTL_API System::UnicodeString FindIcon(const System::UnicodeString& file);

} // namespace Host
