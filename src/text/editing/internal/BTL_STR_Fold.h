// SPDX-License-Identifier: MIT
#pragma once

#include "platform/base/System_String.h"

namespace BTL::Detail
{

/// A copy with the case mapped character by character, so that each keeps its place and the length stays.
[[nodiscard]] System::UnicodeString UpperByCharacter(System::UnicodeString s);
[[nodiscard]] System::AnsiString UpperByCharacter(System::AnsiString s);
[[nodiscard]] System::UnicodeString LowerByCharacter(System::UnicodeString s);

} // namespace BTL::Detail
