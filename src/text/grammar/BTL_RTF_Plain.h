// SPDX-License-Identifier: MIT
#pragma once

#include "platform/base/System_String.h"

namespace BTL
{

// The visible text of Rich Text Format. It is no full reader: of the outermost group the paragraphs are kept,
// the escapes `\\`, `\{`, `\}` and `\'hh`, whose code is taken as the character's own, and the plain
// characters. All other control words and groups give nothing. Broken input ends somewhere, and loses at most
// what follows the break.
//
//     if (BTL::IsRTF(text)) {
//         text = BTL::RTF2PlainStd(text); // a line feed for each paragraph
//     }

/// Whether the text begins with `{\rtf` and goes on.
[[nodiscard]] TRS8_BTL_API bool IsRTF(const System::UnicodeString& text);

/// The visible text with `lineBreak` for each paragraph; empty if it is nothing but one paragraph without
/// text. An escape `\'` that the end of the text cuts off gives nothing. Text in no RTF comes back as it is,
/// but with each CR LF as a line feed if that is the line break.
[[nodiscard]] TRS8_BTL_API System::UnicodeString RTF2Plain(const System::UnicodeString& text,
                                                           const System::UnicodeString& lineBreak);
/// With a line feed.
[[nodiscard]] TRS8_BTL_API System::UnicodeString RTF2PlainStd(const System::UnicodeString& text);
/// With CR LF.
TRS8_BTL_API System::UnicodeString RTF2PlainFile(const System::UnicodeString& text);

} // namespace BTL
