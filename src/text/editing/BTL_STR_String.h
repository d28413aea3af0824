// SPDX-License-Identifier: MIT
#pragma once

#include "foundation/UTL_STR_Find.h"
#include "platform/base/System_String.h"

#include <iosfwd>

namespace BTL
{

/// The empty text.
extern TRS8_BTL_API const System::UnicodeString kEmptyString;

/// What the two string values share: operations of their text `S`, with results of the type `Self`. Unlike
/// those of the text itself, all indices count from 0.
///
///     const BTL::CUnicodeString text(u"a=b");
///     const int place = text.find_first_of(u'=', 0);              // 1
///     const BTL::CUnicodeString value = text.SubString(place + 1, 1);
///     text.Write(stream);                                         // "3 a=b"; `Read` takes it back
template <class Self, class S>
class GStringValue
{
public:
    using Char = typename S::CharType;

    GStringValue() = default;
    GStringValue(const S& text) : mText(text) {}

    const Char* c_str() const noexcept { return mText.c_str(); }
    /// Up to `count` characters from `index`. An `index` below 0 counts as 0; behind the end, or with a
    /// `count` below 1, the result is empty.
    Self SubString(int index, int count) const
    {
        return mText.SubString((index < 0 ? 0 : index < mText.Length() ? index : mText.Length()) + 1, count);
    }
    /// As the functions of these names of the text itself.
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
    /// As `UTL::find_first_not_of`; -1 means not found.
    int find_first_not_of(Char c, int start) const { return UTL::find_first_not_of(c, c_str(), start); }

    friend bool operator==(const Self& a, const Self& b) noexcept { return a.mText == b.mText; }
    friend auto operator<=>(const Self& a, const Self& b) noexcept { return a.mText <=> b.mText; }

protected:
    S mText;
};

/// 8-bit text as a value that streams keep. In a stream it is its size in decimal digits, a blank, and that
/// many bytes, whatever the locale and the flags of the stream.
class TRS8_BTL_API CAnsiString : public GStringValue<CAnsiString, System::AnsiString>
{
public:
    using GStringValue::GStringValue;
    CAnsiString() = default;
    /// Null gives the empty text.
    CAnsiString(const char* text) : GStringValue(System::AnsiString(text)) {}
    CAnsiString(const char* text, int length) : GStringValue(System::AnsiString(text, length)) {}

    int size() const noexcept { return mText.Length(); }
    /// The count of bytes, and the text itself.
    int Length() const noexcept { return mText.Length(); }
    const System::AnsiString& vcl_str() const noexcept { return mText; }

    /// Writes the form that `Read` reads.
    void Write(std::ostream& stream) const;
    /// The text is empty for a size below 1, and if there is no size that an `int` holds, which fails the
    /// stream. Where the stream ends early, the text is what there was and the stream has failed.
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
    // Other 8-bit text doesn't tell whether it is UTF-8: give its `UTF8String` or its `UnicodeString`.
    CUnicodeString(const char*) = delete;
    CUnicodeString(const System::AnsiString&) = delete;

    /// The count of characters.
    int length() const noexcept { return mText.Length(); }
    /// `Sysutils::ERangeError` outside the text.
    System::WideChar operator[](int index) const { return mText[(index < length() ? index : length()) + 1]; }
    /// As `Sysutils::StrToIntDef`.
    int ToIntDef(int defaultValue) const;
    const System::UnicodeString& vcl_str() const noexcept { return mText; }

    /// The form that streams keep: as of `CAnsiString`, in UTF-8.
    void Write(std::ostream& stream) const;
    void Read(std::istream& stream);
};

// The plain text, in UTF-8 where it is wide. Reading takes one word of up to 255 bytes.

TRS8_BTL_API std::ostream& operator<<(std::ostream& stream, const CAnsiString& text);
TRS8_BTL_API std::istream& operator>>(std::istream& stream, CAnsiString& text);
TRS8_BTL_API std::ostream& operator<<(std::ostream& stream, const CUnicodeString& text);
TRS8_BTL_API std::istream& operator>>(std::istream& stream, CUnicodeString& text);

} // namespace BTL
