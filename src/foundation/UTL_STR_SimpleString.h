// SPDX-License-Identifier: MIT
#pragma once

#include "foundation/UTL_ASRT_FaultPlace.h"
#include "platform/base/System_String.h"

#include <concepts>
#include <cstddef>
#include <iosfwd>
#include <type_traits>

namespace UTL
{

/// The smallest string: one pointer to a zero-terminated text of its own, or null. The text is 8-bit in the
/// system's code page; wide text is narrowed on the way in. The null state and an empty array both print
/// nothing, but they are not equal. A text ends at its first zero.
///
///     UTL::CSimpleString name = "U";
///     name += u" [V]";                               // narrowed
///     const int length = name.length();              // 5
///     const System::UnicodeString wide = name;
class TRS8_BTL_API CSimpleString
{
public:
    /// The null state.
    CSimpleString() noexcept = default;
    CSimpleString(std::nullptr_t) noexcept {}
    CSimpleString(const CSimpleString& other);
    CSimpleString(CSimpleString&& other) noexcept;
    /// A null pointer gives the null state, any other text, also an empty one, an array.
    CSimpleString(const char* text);
    CSimpleString(const System::WideChar* text);
    CSimpleString(const System::AnsiString& text);
    CSimpleString(const System::UnicodeString& text);
    /// As `_assign`.
    CSimpleString(const CSimpleString& text, int offset);
    CSimpleString(const char* text, int offset);
    CSimpleString(const System::WideChar* text, int offset);
    /// The decimal text of an integer; a character counts as its code.
    template <std::integral T>
    CSimpleString(T value)
    {
        AssignNumber(value);
    }
    /// As `Sysutils::FloatToStr`, so with the current decimal separator.
    template <std::floating_point T>
    CSimpleString(T value)
    {
        AssignFloat(value);
    }
    ~CSimpleString() { Free(mText); }

    CSimpleString& operator=(const CSimpleString& other)
    {
        return this == &other ? *this : *this = other.mText;
    }
    CSimpleString& operator=(CSimpleString&& other) noexcept;
    CSimpleString& operator=(std::nullptr_t) noexcept;
    /// Nothing happens if `text` is the own pointer. It may be a piece of the own text.
    CSimpleString& operator=(const char* text);
    CSimpleString& operator=(const System::WideChar* text);
    CSimpleString& operator=(const System::AnsiString& text) { return *this = text.c_str(); }
    CSimpleString& operator=(const System::UnicodeString& text) { return *this = text.c_str(); }
    template <std::integral T>
    CSimpleString& operator=(T value)
    {
        AssignNumber(value);
        return *this;
    }
    template <std::floating_point T>
    CSimpleString& operator=(T value)
    {
        AssignFloat(value);
        return *this;
    }

    /// Assigns `text` from the 0-based `offset` on, also a piece of the own text. Where nothing is left to
    /// assign the state becomes null. A negative `offset` counts as 0.
    void _assign(const CSimpleString& text, int offset) { _assign(text.mText, offset); }
    void _assign(const char* text, int offset);
    void _assign(const System::WideChar* text, int offset);

    /// A null pointer adds nothing. Takes time with the length of `text` on the average, however long the
    /// string has become.
    CSimpleString& operator+=(const char* text);
    CSimpleString& operator+=(const System::WideChar* text);
    CSimpleString operator+(const char* text) const;
    CSimpleString operator+(const System::WideChar* text) const;

    // Null equals only null. If one side is null, "less" is true exactly when the left side is.

    bool operator==(const CSimpleString& other) const { return *this == other.mText; }
    bool operator==(const char* text) const;
    bool operator==(const System::WideChar* text) const;
    bool operator==(const System::AnsiString& text) const { return *this == text.c_str(); }
    bool operator==(const System::UnicodeString& text) const { return *this == text.c_str(); }
    bool operator<(const CSimpleString& other) const { return *this < other.mText; }
    bool operator<(const char* text) const;
    bool operator<(const System::WideChar* text) const;
    bool operator<(const System::AnsiString& text) const { return *this < text.c_str(); }
    bool operator<(const System::UnicodeString& text) const { return *this < text.c_str(); }

    /// 0-based. An `index` outside raises an assertion; if that returns, the result is a zero that belongs to
    /// no string.
    char& operator[](int index);
    const char& operator[](int index) const;

    /// Never null.
    const char* c_str() const noexcept { return mText == nullptr ? "" : mText; }
    /// The count of bytes, 0 for null.
    int length() const noexcept;
    int Length() const noexcept { return length(); }
    /// Frees the text; the state is null.
    void clear() noexcept;

    /// As `UTL::GetLong` and `UTL::GetDouble`.
    bool GetLong(long& value) const;
    bool GetDouble(double& value) const;
    /// As `Sysutils::StrToIntDef`.
    int ToIntDef(int defaultValue) const;
    /// As `BTL::ToDoubleDef`: `.` and `,` are both understood.
    double ToDoubleDef(double defaultValue) const;

    operator System::AnsiString() const { return c_str(); }
    operator System::UnicodeString() const { return c_str(); }

private:
    template <std::integral T>
    void AssignNumber(T value)
    {
        if constexpr (std::is_signed_v<decltype(+value)>) {
            AssignInteger(+value);
        } else {
            AssignUnsigned(+value);
        }
    }

    void AssignInteger(System::Int64 value);
    void AssignUnsigned(System::UInt64 value);
    void AssignFloat(double value);
    void AssignFloat(long double value);
    bool IsInside(int index, const CFaultPlace& place) const;
    /// Destroys an array of a string; null is none.
    static void Free(char* text) noexcept;

    /// A text that grew long by `+=` has its length and room in front of it; see the source.
    char* mText = nullptr;
};

/// Writes `c_str()`.
TRS8_BTL_API std::ostream& operator<<(std::ostream& stream, const CSimpleString& text);

} // namespace UTL
