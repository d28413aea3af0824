// SPDX-License-Identifier: MIT
#pragma once

#include "platform/base/System_String.h"

namespace Forms
{

/// Whether `key`, a letter's capital or any other character's number, is that of the character behind the
/// first `&` of a caption, case aside. Two of them are a `&` that marks nothing.
///
///     Forms::IsAccel('S', u"&Save")                               // true
TRS8_BTL_API bool IsAccel(System::Word key, const System::UnicodeString& caption);

/// The caption as it is read: without the ampersands that mark a character, and with one in place of two.
TRS8_BTL_API System::UnicodeString WithoutAccel(const System::UnicodeString& caption);

} // namespace Forms
