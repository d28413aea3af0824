// SPDX-License-Identifier: MIT
#pragma once

#include "platform/base/System_String.h"

namespace WIN
{

/// A span of time as hours, minutes and seconds without leading zeros: "1:1:1" for 3661000. Days count as 24
/// hours each. Of a span below a second the milliseconds follow: "0:0:0.250", and "0:0:0.5" for 5.
[[nodiscard]] TRS8_BTL_API System::UnicodeString GetDuration(unsigned long milliseconds);

} // namespace WIN
