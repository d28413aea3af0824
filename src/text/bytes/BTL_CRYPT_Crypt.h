// SPDX-License-Identifier: MIT
#pragma once

#include "platform/base/System_String.h"

namespace BTL
{

// Keeps a stored value from being read in passing. Neither scrambler is a cipher: whoever has this library
// can undo both.
//
//     const auto stored = BTL::Encrypt(u"word");
//     const auto word = BTL::Decrypt(stored); // "word"

/// `text` as lower-case hex of its 8-bit form, other digits with each call; the empty text stays empty.
/// Characters that the system's code page lacks become `?`.
[[nodiscard]] TRS8_BTL_API System::UnicodeString Encrypt(const System::UnicodeString& text);
/// The text again. What `Encrypt` never made gives any text, and no error.
TRS8_BTL_API System::UnicodeString Decrypt(const System::UnicodeString& hex);

/// A byte string of the same length, always the same for the same bytes.
[[nodiscard]] TRS8_BTL_API System::AnsiString EncryptCLA(const System::AnsiString& text);
/// The bytes again, unless there were zeros among them, which may come back as others. The whole string is
/// needed: a cut one gives other bytes.
TRS8_BTL_API System::AnsiString DecryptCLA(const System::AnsiString& text);

} // namespace BTL
