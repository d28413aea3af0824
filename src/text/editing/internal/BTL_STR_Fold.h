// SPDX-License-Identifier: MIT
#pragma once

#include "platform/base/System_String.h"

namespace BTL::Detail
{

/// Case mapped character by character, so that each stays in its place.
System::UnicodeString UpperInPlace(System::UnicodeString s);
System::AnsiString UpperInPlace(System::AnsiString s);
System::UnicodeString LowerInPlace(System::UnicodeString s);

} // namespace BTL::Detail
