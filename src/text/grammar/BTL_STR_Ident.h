// SPDX-License-Identifier: MIT
#pragma once

#include "platform/base/System_String.h"

namespace BTL
{

// Identifiers, and captions with a marked shortcut.
//
//     const auto name = BTL::TransformToValidIdent(u"1st value", u'_'); // "_st_value"
//     const int place = BTL::ShortCutPos(u"Save && &quit", u'&');       // 9
//     const auto caption = BTL::ClearShortCut(u"&File", u'&');          // "File"

/// Makes an identifier of ASCII letters, digits and `_`: any other character, and a digit in front, becomes
/// `replacement`, or is deleted if that is 0. A deletion can leave a digit in front.
[[nodiscard]] TRS8_BTL_API System::UnicodeString TransformToValidIdent(const System::UnicodeString& s,
                                                                       System::WideChar replacement);
[[nodiscard]] TRS8_BTL_API System::AnsiString TransformToValidIdent(const System::AnsiString& s,
                                                                    char replacement);
/// Makes an identifier as the form without `prefix`, but in place of an empty one gives `prefix` and a number
/// that rises with each such call in the process, from 1 on.
[[nodiscard]] TRS8_BTL_API System::UnicodeString TransformToValidIdent(const System::UnicodeString& s,
                                                                       System::WideChar replacement,
                                                                       const System::UnicodeString& prefix);
[[nodiscard]] TRS8_BTL_API System::AnsiString
TransformToValidIdent(const System::AnsiString& s, char replacement, const System::AnsiString& prefix);

/// The 1-based place of the first `marker` that marks a shortcut: one of no pair, with a character behind it.
/// 0 if there is none.
[[nodiscard]] TRS8_BTL_API int ShortCutPos(const System::UnicodeString& s, System::WideChar marker);
[[nodiscard]] TRS8_BTL_API int ShortCutPos(const System::AnsiString& s, char marker);

/// `s` without its single markers; pairs stay.
[[nodiscard]] TRS8_BTL_API System::UnicodeString ClearShortCut(const System::UnicodeString& s,
                                                               System::WideChar marker);
[[nodiscard]] TRS8_BTL_API System::AnsiString ClearShortCut(const System::AnsiString& s, char marker);

} // namespace BTL
