// SPDX-License-Identifier: MIT
#pragma once

#include "platform/base/System_String.h"

namespace BTL
{

// Macros in text.
//
//     const auto text = BTL::ApplyMacro(u"SUM(1,2)", u"SUM(a,b)", u"%a+%b"); // "1+2"

/// Replaces `macro` in `text` by `body`, wherever it stands, within a longer word too. A macro such as
/// "NAME(a,b)" has parameters: "%a" in the body becomes the first value of the call "NAME(x,y)", and so on; a
/// "%name" without a value stays, surplus values are dropped. Parameters and values are comma texts; brackets
/// don't nest, so the first closing one ends a call. What was inserted is searched again for calls; a body
/// that goes on calling itself is expanded only to a bound and then stands as it is, as does a call without
/// its brackets.
[[nodiscard]] TRS8_BTL_API System::UnicodeString ApplyMacro(const System::UnicodeString& text,
                                                            const System::UnicodeString& macro,
                                                            const System::UnicodeString& body);
[[nodiscard]] TRS8_BTL_API System::AnsiString
ApplyMacro(const System::AnsiString& text, const System::AnsiString& macro, const System::AnsiString& body);

} // namespace BTL
