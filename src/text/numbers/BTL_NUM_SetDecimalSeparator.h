// SPDX-License-Identifier: MIT
#pragma once

#include "platform/base/System_String.h"

namespace BTL
{

/// Sets `Sysutils::DecimalSeparator` for the whole process as long as the object lives, and then puts the
/// former one back. Meant for one thread while no other formats numbers.
///
///     {
///         const BTL::CSetDecimalSeparator guard('.');
///         text = Sysutils::FloatToStr(1.5); // "1.5" whatever the locale
///     }
class TRS8_BTL_API CSetDecimalSeparator
{
public:
    explicit CSetDecimalSeparator(char separator);
    CSetDecimalSeparator(const CSetDecimalSeparator&) = delete;
    CSetDecimalSeparator& operator=(const CSetDecimalSeparator&) = delete;
    ~CSetDecimalSeparator();

private:
    // As wide as the global, so that a separator outside the 8-bit code page comes back unharmed.
    System::WideChar mFormer;
};

/// `text` with its first `.`, or if there is none its first `,`, replaced by `separator`.
[[nodiscard]] TRS8_BTL_API System::UnicodeString SetDecimalSeparator(const System::UnicodeString& text,
                                                                     System::WideChar separator);
[[nodiscard]] TRS8_BTL_API System::AnsiString SetDecimalSeparator(const System::AnsiString& text,
                                                                  char separator);

/// As `SetDecimalSeparator` with `Sysutils::DecimalSeparator`.
[[nodiscard]] TRS8_BTL_API System::UnicodeString AdaptDecimalSeparator(const System::UnicodeString& text);
[[nodiscard]] TRS8_BTL_API System::AnsiString AdaptDecimalSeparator(const System::AnsiString& text);
/// A literal of 8-bit text; null counts as the empty text.
[[nodiscard]] inline System::AnsiString AdaptDecimalSeparator(const char* text)
{
    return AdaptDecimalSeparator(System::AnsiString(text));
}

} // namespace BTL
