// SPDX-License-Identifier: MIT
#pragma once

#include "platform/base/System_String.h"

namespace Pasu_utf8
{

// Wide text and UTF-8, unit by unit: what `System::ToUtf8` replaces because it is no valid text comes back.
//
//     const System::UTF8String bytes = Pasu_utf8::WideStringToUTF8(u"5 \u00B5m");

/// Each unit of the text by itself in 1 to 3 bytes. So the two halves of a surrogate pair take 3 bytes each,
/// which isn't the UTF-8 of other programs.
[[nodiscard]] TRS8_BTL_API System::UTF8String WideStringToUTF8(const System::UnicodeString& text);

/// The text of sequences of 1 to 6 bytes. A value above U+FFFF becomes a surrogate pair, one above U+10FFFF
/// the character U+FFFD, as does each byte that belongs to no whole sequence. Sequences that are longer than
/// their value needs count as that value.
[[nodiscard]] TRS8_BTL_API System::UnicodeString UTF8ToWideString(const System::UTF8String& bytes);

} // namespace Pasu_utf8
