// SPDX-License-Identifier: MIT
#pragma once

#include "platform/base/System_String.h"

#include <concepts>
#include <string>

namespace UTL
{

/// A `std::string` with the helpers of this layer. The text is 8-bit in the system's code page.
///
///     UTL::CString text = "  12 ";
///     const int number = text.Trim().ToInt();        // 12
///     text += System::AnsiString("V");
class TRS8_BTL_API CString : public std::string
{
public:
    CString() = default;
    /// A null pointer gives the empty text.
    CString(const char* text);
    /// Up to `count` characters of `text`, which also ends at its zero; a negative `count` counts as 0.
    CString(const char* text, int count);
    CString(const std::string& text) : std::string(text) {}
    CString(std::string&& text) noexcept : std::string(std::move(text)) {}
    /// From the 0-based `start` to the end: all for a negative `start`, nothing for one behind the end.
    CString(const std::string& text, int start);
    CString(const System::AnsiString& text) : std::string(text.AsView()) {}

    using std::string::operator=;
    using std::string::operator+=;
    CString& operator=(const System::AnsiString& text);
    CString& operator+=(const System::AnsiString& text);
    operator System::AnsiString() const { return System::AnsiString(std::string_view(*this)); }

    /// As `UTL::GetLong` and `UTL::GetDouble`; the empty text gives false and leaves `value` alone.
    bool GetLong(long& value) const;
    bool GetDouble(double& value) const;
    /// As `UTL::ToInt` and `UTL::ToFloat`.
    int ToInt() const;
    float ToFloat() const;
    /// As `UTL::IsDigitString`; the empty text gives false.
    bool IsDigitString(bool sign, bool blanks) const;

    /// By the rules of `System::AnsiString`; trimming removes all characters up to and including the blank.
    CString UpperCase() const;
    CString TrimLeft() const;
    CString TrimRight() const;
    CString Trim() const;
};

// Templates, so that no other argument converts to `AnsiString` and competes with the operators of the base.

template <std::same_as<System::AnsiString> Text>
CString operator+(const CString& a, const Text& b)
{
    CString result = a;
    result += b;
    return result;
}

template <std::same_as<System::AnsiString> Text>
bool operator==(const CString& a, const Text& b) noexcept
{
    return std::string_view(a) == b.AsView();
}

template <std::same_as<System::AnsiString> Text>
bool operator<(const CString& a, const Text& b) noexcept
{
    return std::string_view(a) < b.AsView();
}

} // namespace UTL
