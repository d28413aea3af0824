// SPDX-License-Identifier: MIT
#pragma once

#include "platform/runtime/variants/System_Variant.h"

namespace BTL
{

// The value that a text stands for.
//
//     const auto number = BTL::StringToBestVariant(u"12");              // an `int`
//     const auto text = BTL::StringToBestVariant(u"12abc");             // the text
//     const auto flag = BTL::StringToBestPropertyValue(u"true");        // 1

/// What the whole text is: an integer (decimal, or hexadecimal behind `$` or `0x`), a `double`, Null if
/// empty, else the text.
[[nodiscard]] TRS8_BTL_API System::Variant StringToBestVariant(const System::UnicodeString& text);
/// As `StringToBestVariant`, but "false" is 0, "true" 1 and "null" Null, in small letters only.
[[nodiscard]] TRS8_BTL_API System::Variant StringToBestPropertyValue(const System::UnicodeString& text);

} // namespace BTL
