// SPDX-License-Identifier: MIT
#pragma once

#include "foundation/UTL_STR_Utilities.h"
#include "platform/runtime/System_String.h"

#include <algorithm>
#include <climits>
#include <iosfwd>

namespace BTL
{

/// The empty text.
extern TRS8_BTL_API const System::UnicodeString kEmptyString;

/// What the two string values share: operations of their text `S`, with results of the type `Self`. Other
/// than in the text itself, all positions count from 0.
template <class Self, class S>
class GStringValue
{
public:
    using Char = typename S::CharType;

    GStringValue() = default;
    GStringValue(const S& text) : mText(text) {}

    const Char* c_str() const noexcept { return mText.c_str(); }
    /// Up to `count` characters from the 0-based `index`, which counts as 0 if it is negative.
    Self SubString(int index, int count) const
    {
        const auto start = static_cast<std::size_t>(std::clamp(index, 0, mText.Length()));
        return S(mText.AsView().substr(start, static_cast<std::size_t>(std::max(count, 0))));
    }
    /// The character at the 0-based `index`; `Sysutils::ERangeError` outside the text.
    Char operator[](int index) const { return mText[index == INT_MAX ? index : index + 1]; }
    Self LowerCase() const { return mText.LowerCase(); }
    Self UpperCase() const { return mText.UpperCase(); }
    Self Trim() const { return mText.Trim(); }
    Self TrimLeft() const { return mText.TrimLeft(); }
    Self TrimRight() const { return mText.TrimRight(); }

    // As the functions of these names in `UTL`; -1 means not found.

    int find_first_of(Char c, int start) const { return UTL::find_first_of(c, c_str(), start); }
    int find_first_of2(Char c1, Char c2, int start) const
    {
        return UTL::find_first_of2(c1, c2, c_str(), start);
    }
    int find_first_not_of(Char c, int start) const { return UTL::find_first_not_of(c, c_str(), start); }

    friend bool operator==(const Self& a, const Self& b) noexcept { return a.mText == b.mText; }
    friend auto operator<=>(const Self& a, const Self& b) noexcept { return a.mText <=> b.mText; }

protected:
    S mText;
};

/// 8-bit text as a value that streams keep. In a stream it is its size in decimal digits, a blank, and that
/// many bytes.
class TRS8_BTL_API CAnsiString : public GStringValue<CAnsiString, System::AnsiString>
{
public:
    using GStringValue::GStringValue;
    CAnsiString() = default;
    /// Null gives the empty text.
    CAnsiString(const char* text) : GStringValue(System::AnsiString(text)) {}
    CAnsiString(const char* text, int length) : GStringValue(System::AnsiString(text, length)) {}

    int size() const noexcept { return mText.Length(); }
    int Length() const noexcept { return mText.Length(); }
    const System::AnsiString& vcl_str() const noexcept { return mText; }

    void Write(std::ostream& stream) const;
    /// The text is empty if there is no size, or one below 1. Where the stream ends early, the text is what
    /// there was and the stream has failed.
    void Read(std::istream& stream);
};

/// 16-bit text as a value that streams keep, there as the `CAnsiString` of its UTF-8 form.
class TRS8_BTL_API CUnicodeString : public GStringValue<CUnicodeString, System::UnicodeString>
{
public:
    using GStringValue::GStringValue;
    CUnicodeString() = default;
    CUnicodeString(const System::WideChar* text) : GStringValue(System::UnicodeString(text)) {}
    CUnicodeString(const System::WideChar* text, int length)
        : GStringValue(System::UnicodeString(text, length))
    {
    }
    CUnicodeString(const System::UTF8String& text) : GStringValue(System::UnicodeString(text)) {}

    int length() const noexcept { return mText.Length(); }
    /// As `Sysutils::StrToIntDef`.
    int ToIntDef(int defaultValue) const;
    const System::UnicodeString& vcl_str() const noexcept { return mText; }

    void Write(std::ostream& stream) const;
    void Read(std::istream& stream);
};

// The plain text, in UTF-8 where it is wide. Reading takes one word of up to 255 bytes.

TRS8_BTL_API std::ostream& operator<<(std::ostream& stream, const CAnsiString& text);
TRS8_BTL_API std::istream& operator>>(std::istream& stream, CAnsiString& text);
TRS8_BTL_API std::ostream& operator<<(std::ostream& stream, const CUnicodeString& text);
TRS8_BTL_API std::istream& operator>>(std::istream& stream, CUnicodeString& text);

} // namespace BTL
