// SPDX-License-Identifier: MIT
#pragma once

#include "platform/base/System_String.h"

namespace BTL
{

// The current language is a value that the program sets, German at first. Nothing follows from it by itself:
// texts that were read stay, and names of files stay too. It belongs to the main thread.
//
//     BTL::SetCurLanguage(BTL::GetLanguage(u"english"));
//     const auto code = BTL::GetCurLanguageA3Acronym();           // "eng"

/// A language. Every text of `None`, and of a value that is none of these, is empty.
enum class ELanguage
{
    None = 0,
    German = 1,
    English = 2,
    Dutch = 3,
    French = 4,
    Italian = 5,
    Spanish = 6,
    Klingon = 7,
};

/// Sets the current language to German.
TRS8_BTL_API void SetDefLanguage();
/// Sets the current language; `None` means German.
TRS8_BTL_API void SetCurLanguage(ELanguage language);
TRS8_BTL_API void SetCurrLanguage(ELanguage language);
/// The current language.
[[nodiscard]] TRS8_BTL_API ELanguage GetCurLanguage();
[[nodiscard]] TRS8_BTL_API ELanguage GetCurrLanguage();

/// The language of an English name, without regard to case; `None` for any other text.
[[nodiscard]] TRS8_BTL_API ELanguage GetLanguage(const System::UnicodeString& name);
/// The English name.
[[nodiscard]] TRS8_BTL_API System::UnicodeString GetI18NLanguageName(ELanguage language);
/// Two letters, as "DE".
[[nodiscard]] TRS8_BTL_API System::UnicodeString GetLanguageAcronym(ELanguage language);
/// Three letters, as "ger".
[[nodiscard]] TRS8_BTL_API System::UnicodeString GetLanguageA3Acronym(ELanguage language);
/// As `GetLanguageA3Acronym` of the current language.
[[nodiscard]] TRS8_BTL_API System::UnicodeString GetCurLanguageA3Acronym();
[[nodiscard]] TRS8_BTL_API System::UnicodeString GetCurrLanguageA3Acronym();

/// "BIN_" and the two letters in the root, with a separator behind. The folder is made, unless the last call
/// was for it.
TRS8_BTL_API System::UnicodeString GetI18NLanguageBinPath(ELanguage language);

} // namespace BTL
